// A shop whose groups are tried against machine models on a virtual clock.
#pragma once

#include "comm/conexion/Palabras.h"
#include "devices/Modelos.h"
#include "motor/TiendaDeMotor.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;
using conexion::Que;
using simulador::Averia;

struct TiendaDeConexion : TiendaDeMotor {
  TiendaDeConexion() { gestor->VigilaProcesos(0, false, nullptr); }

  // A machine at the end of "cable 1": a group of scales with these numbers, or the node or
  // register with that address.
  simulador::Maquina& enlazar(int tipo, int direccion, std::vector<int> balanzas = {},
                              const QString& donde = u"cable 1"_s) {
    simulador::OpcionesMaquina o;
    o.tipo = static_cast<simulador::Tipo>(tipo);
    o.direccion = direccion;
    o.balanzas = std::move(balanzas);
    o.repeticiones = 0;
    puestas.push_back(simulador::crearMaquina(o, reloj));
    fabrica.cables[donde].poner(*puestas.back());
    return *puestas.back();
  }
  static void averiar(simulador::Maquina& m, simulador::Paso paso) {
    simulador::Fallos f;
    f.guion.push_back(paso);
    m.percances().cambiar(f);
  }
  // By the cable of channel 1; of scales their numbers, of registers their addresses.
  static conexion::GrupoProbado pedir(int tipo, const std::vector<int>& cuales, int nodo = 0) {
    conexion::GrupoProbado p;
    p.tipo = *deNumero<TipoGrupo>(tipo);
    p.remoto = TipoAcceso::Directo;
    p.nodo = nodo;
    for (const int n : cuales) {
      const int sitio = tipo == 3 ? static_cast<int>(p.maquinas.size()) : n;
      p.maquinas.push_back({.sitio = sitio, .modelo = devices::kRowan});
      if (tipo == 3) p.maquinas.back().direccion = n;
    }
    return p;
  }
  // Runs it until its end; false if it has none within the time.
  bool probar(const conexion::GrupoProbado& p, int minutos = 20) {
    bien(prueba.empezar(p));
    return acabar(minutos);
  }
  bool acabar(int minutos = 20) {
    for (int i = 0; i < minutos * 600 && prueba.enMarcha(); ++i) reloj.avanzar(100);
    reloj.avanzar(100);
    return !prueba.enMarcha();
  }
  // "Abierto Contesta NoEsta", with the places of those that aren't in the group.
  QString dicho() {
    static constexpr QStringView kNombres[] = {
        u"Pendiente", u"Preguntando", u"Abierto", u"Contesta", u"Sobra",
        u"NoEsta",    u"NoContesta",  u"AMedias", u"Ruido",    u"Rechaza",
        u"Cortado",   u"NoAbre",      u"SinDir",  u"MismaDir", u"SinProbar"};
    QStringList s;
    for (const auto& c : prueba.contestaciones())
      s << kNombres[static_cast<int>(c.que)].toString() +
               (c.que == Que::Sobra ? QString::number(c.sitio) : QString());
    return s.join(u' ');
  }
  QString resumido() { return conexion::resumen(prueba, textosDePrueba()); }
  // Nothing but the three questions has reached a machine.
  bool soloPreguntas() {
    return std::ranges::all_of(puestas, [](const auto& m) {
      return std::ranges::all_of(m->oidas(), [](const auto& p) {
        // A scale takes the first three digits of a register's question for its code.
        const bool deCaja = p.codigo == 2060 || (p.codigo == 206 && p.datos == "0");
        return p.codigo == 570 || p.codigo == 72 || deCaja;
      });
    });
  }
  // A list of the cable is on record as broken off.
  bool enDuda() {
    return filas(u"SELECT count(*) FROM EstadoTarvo WHERE CLAVE='ListaEnLinea 2 0'"_s) == u"1";
  }
  bool libre() { return !fabrica.cables[u"cable 1"_s].abierto() && !(*enlaces)[0]; }

  std::vector<std::unique_ptr<simulador::Maquina>> puestas;
  conexion::Prueba prueba{{*gestor, *enlaces, *db}, *ajustes, reloj, textosDePrueba()};
};

}  // namespace tarvo::prueba
