#include <QCryptographicHash>
#include <algorithm>
#include <limits>

#include "comm/tareas/AjustesListas.h"
#include "comm/tareas/Listas.h"
#include "core/ajustes/Sala.h"
#include "core/dao/Marcas.h"

namespace tarvo::tareas {

namespace {

using maquinas::Linea;
using namespace Qt::StringLiterals;

struct Nombres {
  const char16_t *cabecera, *lineas, *numero, *contador;
};

constexpr Nombres kPedidos{u"PEDI_CAB", u"PEDI_LIN", u"NUMPED", u"NumeroPedido"};
constexpr Nombres kInventarios{u"INVE_CAB", u"INVE_LIN", u"NUMINV", u"NumeroInventario"};

const Nombres& nombres(Documento que) {
  return que == Documento::Pedido ? kPedidos : kInventarios;
}

QString q(const char16_t* s) {
  return QString::fromUtf16(s);
}

QString huella(const std::vector<Linea>& lineas, size_t cuantas) {
  QCryptographicHash h(QCryptographicHash::Sha1);
  for (size_t i = 0; i < cuantas; ++i)
    h.addData(QByteArray::number(lineas[i].articulo) + '|' + QByteArray::number(lineas[i].peso) +
              '|' + QByteArray::number(lineas[i].unidades) + '\n');
  return QString::fromLatin1(h.result().toHex());
}

constexpr Limites kNumeros{0, 999'999'999};  // with room for the numbers to come

}  // namespace

SalaDeAjustes ajustesListas() {
  using A = AjustesListas;
  return salaDeAjustes(
      A(), {clave<&A::NumeroPedido, ini::leerLimitado<kNumeros>>(905, u"NúmeroPedido"),
            clave<&A::NumeroInventario, ini::leerLimitado<kNumeros>>(906, u"NúmeroInventario")});
}

Resultado<qint64> ListaRecibida::numeroNuevo() {
  const Nombres& n = nombres(que_);
  TARVO_TOMAR(const auto ultimo, e_.db.uno(dao::conMarcas(
                                     u"SELECT MAX({numero}) FROM {documentos}",
                                     {{u"numero", q(n.numero)}, {u"documentos", q(n.cabecera)}})));
  TARVO_TOMAR(const auto guardado,
              e_.db.uno(u"SELECT VALOR FROM EstadoTarvo WHERE CLAVE=?"_s, n.contador));
  const auto& a = e_.ajustes.de<AjustesListas>();
  const int ajuste = que_ == Documento::Pedido ? a.NumeroPedido : a.NumeroInventario;
  const qint64 numero = std::max({ultimo.entero(), guardado.entero(), qint64{ajuste}}) + 1;
  TARVO_TOMAR(
      const auto cambiadas,
      e_.db.ejecutar(u"UPDATE EstadoTarvo SET VALOR=? WHERE CLAVE=?"_s, numero, n.contador));
  if (cambiadas == 0)
    TARVO_INTENTAR(e_.db.ejecutar(u"INSERT INTO EstadoTarvo (CLAVE, VALOR) VALUES (?, ?)"_s,
                                  n.contador, numero));
  return numero;
}

Resultado<> ListaRecibida::escribirLineas(const std::vector<Linea>& lineas, size_t desde) {
  const Nombres& n = nombres(que_);
  const bool pedido = que_ == Documento::Pedido;
  TARVO_TOMAR(
      auto st,
      e_.db.preparar(dao::conMarcas(
          pedido ? QStringView(u"INSERT INTO {lineas} ({numero}, SECCION, CODIGO, PESO, UNIDS, "
                               u"SERV_UNI, SERV_PES) VALUES (?,?,?,?,?,0,0)")
                 : QStringView(u"INSERT INTO {lineas} ({numero}, SECCION, CODIGO, PESO, UNIDS) "
                               u"VALUES (?,?,?,?,?)"),
          {{u"lineas", q(n.lineas)}, {u"numero", q(n.numero)}})));
  for (size_t i = desde; i < lineas.size(); ++i) {
    const qint64 campos[] = {numero_, t_.Seccion, lineas[i].articulo, lineas[i].peso,
                             lineas[i].unidades};
    for (int c = 0; c < 5; ++c) st->ligar(c, campos[c]);
    TARVO_INTENTAR(st->ejecutar());
  }
  return {};
}

// Is this the list recorded last, which the machine still holds? Then its document continues.
Resultado<bool> ListaRecibida::continuar(const std::vector<Linea>& lineas) {
  const Nombres& n = nombres(que_);
  TARVO_TOMAR(
      const auto rs,
      e_.db.consultar(
          dao::conMarcas(u"SELECT NUMERO, HUELLA, LINEAS FROM ListasRecibidas, {documentos} WHERE "
                         u"ListasRecibidas.GRUPO=? AND CLASE=? AND OLVIDADA=0 AND "
                         u"{numero}=NUMERO ORDER BY NUMERO DESC",
                         {{u"documentos", q(n.cabecera)}, {u"numero", q(n.numero)}}),
          t_.Grupo, t_.Clase));
  if (rs->Eof()) return false;
  const auto conocidas = static_cast<size_t>(rs->entero(2));
  if (conocidas > lineas.size() || huella(lineas, conocidas) != rs->texto(1)) return false;
  numero_ = rs->entero(0);
  TARVO_INTENTAR(escribirLineas(lineas, conocidas));
  TARVO_INTENTAR(e_.db.ejecutar(
      u"UPDATE ListasRecibidas SET HUELLA=?, LINEAS=? WHERE CLASE=? AND NUMERO=?"_s,
      huella(lineas, lineas.size()), static_cast<qint64>(lineas.size()), t_.Clase, numero_));
  return true;
}

Resultado<> ListaRecibida::guardar(const std::vector<Linea>& lineas) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(e_.db));
  TARVO_TOMAR(const auto sigue, continuar(lineas));
  if (!sigue) TARVO_INTENTAR(empezarDocumento(lineas));
  TARVO_INTENTAR(tr.confirmar());
  return e_.db.asentar();
}

Resultado<> ListaRecibida::empezarDocumento(const std::vector<Linea>& lineas) {
  const Nombres& n = nombres(que_);
  // Another list: the machine has forgotten those before it.
  TARVO_INTENTAR(e_.db.ejecutar(
      u"UPDATE ListasRecibidas SET OLVIDADA=1 WHERE GRUPO=? AND CLASE=?"_s, t_.Grupo, t_.Clase));
  TARVO_TOMAR(const auto numero, numeroNuevo());
  numero_ = numero;
  TARVO_INTENTAR(
      e_.db.ejecutar(dao::conMarcas(u"INSERT INTO {documentos} ({numero}, FECHA, GRUPO, stkADO, "
                                    u"OBSERVA) VALUES (?, ?, ?, 0, '')",
                                    {{u"documentos", q(n.cabecera)}, {u"numero", q(n.numero)}}),
                     numero_, e_.reloj.ahora(), t_.Grupo));
  TARVO_INTENTAR(escribirLineas(lineas, 0));
  TARVO_INTENTAR(
      e_.db.ejecutar(u"INSERT INTO ListasRecibidas (GRUPO, CLASE, NUMERO, HUELLA, LINEAS, "_s
                     u"OLVIDADA) VALUES (?, ?, ?, ?, ?, 0)"_s,
                     t_.Grupo, t_.Clase, numero_, huella(lineas, lineas.size()),
                     static_cast<qint64>(lineas.size())));
  return {};
}

Resultado<> ListaRecibida::olvidada() {
  TARVO_INTENTAR(e_.db.ejecutar(
      u"UPDATE ListasRecibidas SET OLVIDADA=1 WHERE CLASE=? AND NUMERO=?"_s, t_.Clase, numero_));
  return {};
}

}  // namespace tarvo::tareas
