// The products of a seed: a shop, the process that runs each night, and the faults of each night.
#pragma once

#include <QStringList>
#include <array>
#include <deque>
#include <map>
#include <set>
#include <vector>

#include "core/tiempo/Reloj.h"
#include "simulador/Maquina.h"

namespace tarvo::noches {

inline constexpr int kPLUs = 16, kGranTotal = 17, kOperadores = 18, kDepartamentos = 19,
                     kHorario = 20, kOperHora = 21, kPedidos = 22, kInventarios = 23;

// Whether machines of that kind have that kind of task.
bool vale(int clase, simulador::Tipo tipo);

struct PlanGrupo {
  int codigo = 0;
  simulador::Tipo tipo = simulador::Tipo::Balanzas;
  int remoto = 3;  // 2 direct cable, 3 TCP/IP, 4 connector
  QString acceso;  // host text or connector name
  int canal = 0;   // direct cable, from 1
  int addr = 1;
  std::vector<int> direcciones;  // of its machines
  std::vector<int> operadores;   // code of each position
  int almacen = 0;
  // For a register: the counters cleared by its three orders to forget, unknown to the program.
  std::array<int, 3> borra{simulador::kArticulos, simulador::kTotales, simulador::kPersonal};
  QString linea() const { return remoto == 2 ? QStringLiteral("COM%1").arg(canal) : acceso; }
};

struct Corte {
  qint64 evento = -1;        // counted from the start of the program
  qint64 confirmacion = -1;  // or at this commit, within an event
  int segundos = 1;          // until a person starts the process again
  bool vuelve = true;        // false: no one does, this night
  int ventas = 0;            // made while the program was down
};

struct AveriasLinea {
  double ocupada = 0, rechazo = 0, bit = 0, cierreMudo = 0;
};

// What a person does to the groups in a day, at the windows of the program.
struct Edicion {
  enum Que {
    GuardarIgual,
    QuitarMaquina,
    AnadirMaquina,
    CambiarDireccion,
    CambiarCodigo,
    CambiarClase,
    Configurar,
    BorrarYReponer,
    Recrear,
    Copiar
  } que = GuardarIgual;
  enum Cuando { SinContestar, Manana, Tarde } cuando = Manana;  // Tarde: with the day's sales
  quint64 semilla = 0;  // of what else is drawn: the group, the machine...
};

struct PlanNoche {
  bool calma = false;
  int minuto = 22 * 60;                   // of the day at which it starts
  std::vector<simulador::Fallos> fallos;  // by machine
  AveriasLinea linea;
  std::vector<Corte> cortes;
  qint64 llenoDesde = -1, llenoEventos = 0;
  qint64 saltoEn = -1;
  double salto = 0;               // days
  qint64 fallaConfirmacion = -1;  // of the first start
  double sinVentas = 0;           // how likely a register sells nothing that day
  double devueltas = 0;           // how likely a piece of an earlier day comes back to a machine
  bool diaAMano = false;          // a person has created the day's period before
  int ventas = -1;                // of each machine, beside the day's own; -1: a few
  bool otraVez = false;           // the process runs once more the same evening, after a sale
  bool cambio = false;            // machines without unread sales are exchanged before
  std::vector<Edicion> ediciones = {};
  bool canje = false;  // two groups exchanged their addresses before, and keep their machines
};

struct Plan {
  // `conCostumbres`: also people's habits, see costumbres(). Older kept seeds do without.
  explicit Plan(quint64 semilla, bool conCostumbres = true);

  quint64 semilla;
  QDate primerDia;
  std::deque<PlanGrupo> grupos;  // where they are they stay
  simulador::Catalogo articulos;
  QStringList proceso;
  std::set<std::pair<int, int>> leidas;  // (group, kind) that the process reads
  std::set<int> aCero;                   // groups that it zeroes
  bool aUno = true, acumula = false, descuenta = false, exporta = false, corto = false,
       optimizada = false;
  int reintentos = 0;
  bool devuelveCuenta = false;  // a return lowers the count of its article
  bool notas = true;            // after a list is forgotten the next one may be entered at once
  std::vector<PlanNoche> noches;

 private:
  void tienda(Azar& azar);
  void grupo(Azar& azar, int codigo);
  void pasos(Azar& azar);
  void tareas(Azar& azar, const QString& clave, int clase, const QString& cola = {});
  void noche(Azar& azar, std::size_t maquinas);
  void costumbres();
  void ediciones();
  void canjes();
};

}  // namespace tarvo::noches
