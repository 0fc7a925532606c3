// Storing a group: its row, its machines and its row of Sesiones, all or nothing.
#include <cmath>

#include "devices/Fila.h"
#include "devices/Grupo.h"
#include "devices/Modelos.h"

namespace tarvo::devices {

namespace {

dao::Valor siHay(const QString& texto) {
  return texto.isEmpty() ? dao::Valor() : dao::Valor(texto);
}

Resultado<> asegurarSesion(dao::Database& db, int codigo) {
  TARVO_TOMAR(const auto sesiones, db.OpenTable(u"Sesiones", u"CODGPO"));
  TARVO_TOMAR(const auto hallada, sesiones->Seek(dao::Busca::Igual, codigo));
  if (hallada) return {};
  sesiones->AddNew();
  ponerColumna(*sesiones, u"CODGPO", codigo);
  return sesiones->Update();
}

}  // namespace

Resultado<> Grupo::SaveAs(dao::Database& db, int codigo, const QString& nombre) {
  TARVO_TOMAR(auto transaccion, dao::Transaccion::empezar(db));
  // The machines are deleted first, so that a group with a new code leaves none behind.
  if (codigo_) TARVO_INTENTAR(db.ejecutar(u"delete * from bzas where SUGPO=?", *codigo_));
  TARVO_INTENTAR(guardarFila(db, codigo, nombre));
  TARVO_INTENTAR(guardarMiembros(db, codigo));
  TARVO_INTENTAR(asegurarSesion(db, codigo));
  TARVO_INTENTAR(transaccion.confirmar());
  codigo_ = codigo;
  return {};
}

Resultado<> Grupo::guardarFila(dao::Database& db, int codigo, const QString& nombre) const {
  TARVO_TOMAR(const auto tabla, db.OpenTable(u"GRUPOS", u"CODGPO"));
  dao::Recordset& fila = *tabla;
  bool existe = false;
  if (codigo_) {
    TARVO_TOMAR(const auto hallado, fila.Seek(dao::Busca::Igual, *codigo_));
    existe = hallado;
  }
  existe ? fila.Edit() : fila.AddNew();
  ponerColumna(fila, u"CODGPO", codigo);
  ponerColumna(fila, u"NOMGPO", nombre);
  if (tipo_ || !existe) ponerColumna(fila, u"tipo", numeroDe(tipo_, 0));
  ponerFila(fila);
  ponerAcceso(fila);
  ponerListas(fila);
  return fila.Update();
}

void Grupo::ponerFila(dao::Recordset& fila) const {
  QString flags;
  for (const bool flag : TicketFlags) flags += flag ? u'1' : u'0';
  const int copia = CopiaBarras ? 2 : 1;
  const std::pair<const char16_t*, dao::Valor> valores[] = {
      {u"seccion", seccion},
      {u"tarifa", tarifa},
      {u"Almacen", Almacen < 1 ? dao::Valor() : dao::Valor(Almacen)},
      {u"Addr", NumGpo},
      {u"Baudios", Baudios},
      {u"EnLinea", EnLinea},
      {u"TK_FLAGS", flags},
      {u"TK_CPIA", Copia ? copia : 0},
      {u"TK_TCOP", CopiaPausa},
      {u"E13_PE", E13_PE},
      {u"E08_PE", E08_PE},
      {u"E13_CU", E13_CU},
      {u"E08_CU", E08_CU},
      {u"TOTE", TOTE},
      {u"TOCO", TOCO},
      {u"PITO", PITO},
      {u"SALT", SALT},
      {u"PRLI", PRLI},
      {u"Horario", siHay(Horario)}};
  for (const auto& [nombre, valor] : valores) ponerColumna(fila, nombre, valor);
}

void Grupo::ponerAcceso(dao::Recordset& fila) const {
  if (!Acceso) return;
  ponerColumna(fila, u"remoto", numeroDe(*Acceso));
  const bool directo = Acceso == TipoAcceso::Directo;
  const bool conTexto = !directo && Acceso != TipoAcceso::Ninguno;
  ponerColumna(fila, u"telef", conTexto ? dao::Valor(Telefono) : dao::Valor());
  ponerColumna(fila, u"canal", directo ? dao::Valor(Canal) : dao::Valor());
}

void Grupo::ponerListas(dao::Recordset& fila) const {
  int n = 0;
  for (const OperadorGrupo& o : operadoresGrupo_) {
    ++n;
    if (!ponerColumna(fila, conNumero(u"OP", n, u"_C"), o.codigo)) break;
    if (!ponerColumna(fila, conNumero(u"OP", n, u"_T"), o.training)) break;
  }
  n = 0;
  for (const float tasa : ivas_)
    ponerColumna(fila, conNumero(u"IVA", ++n), qint64{std::lround(double{tasa} * 100)});
  n = 0;
  for (const int indice : ivaDepartamentos_)
    if (!ponerColumna(fila, conNumero(u"IVD", ++n), indice)) break;
}

Resultado<> Grupo::guardarMiembros(dao::Database& db, int codigo) const {
  TARVO_INTENTAR(db.ejecutar(u"delete * from bzas where SUGPO=?", codigo));
  TARVO_TOMAR(const auto tabla, db.OpenTable(u"BZAS", u"PrimaryKey"));
  dao::Recordset& fila = *tabla;
  for (const auto& [numero, miembro] : LasBalanzas) {
    fila.AddNew();
    std::visit([&fila](const auto& maquina) { maquina.GetValues(fila); }, miembro);
    ponerColumna(fila, u"SUGPO", codigo);
    ponerColumna(fila, u"NMBZA", numero);
    TARVO_INTENTAR(fila.Update());
  }
  return {};
}

}  // namespace tarvo::devices
