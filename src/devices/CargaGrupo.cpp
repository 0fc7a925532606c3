// Loading a group from the row of GRUPOS under the cursor.
#include "devices/Fila.h"
#include "devices/Grupo.h"
#include "devices/Modelos.h"

namespace tarvo::devices {

Resultado<> Grupo::LetValues(dao::Database& db, const dao::Recordset& fila) {
  *this = Grupo(idioma_);
  leerFila(fila);
  leerAcceso(fila);
  leerTicket(fila);
  TARVO_INTENTAR(AbreOperadores(db));
  const auto operadores = leerOperadores(fila);
  CierraOperadores();
  TARVO_INTENTAR(operadores);
  TARVO_INTENTAR(leerDepartamentos(db, fila));
  return leerMiembros(db);
}

void Grupo::leerFila(const dao::Recordset& fila) {
  int codigoLeido = 0;
  std::optional<TipoGrupo> tipoLeido = TipoGrupo::Balanzas;
  leerColumna(fila, u"CODGPO", codigoLeido);
  leerColumna(fila, u"tipo", tipoLeido);
  codigo_ = codigoLeido;
  tipo(tipoLeido);
  NumGpo = 1;
  leerColumna(fila, u"Addr", NumGpo);
  leerColumna(fila, u"seccion", seccion);
  leerColumna(fila, u"tarifa", tarifa);
  leerColumna(fila, u"Almacen", Almacen);
  leerColumna(fila, u"Baudios", Baudios);
  leerColumna(fila, u"EnLinea", EnLinea);
  for (auto [nombre, campo] : {std::pair{u"E13_PE", &E13_PE},
                               {u"E08_PE", &E08_PE},
                               {u"E13_CU", &E13_CU},
                               {u"E08_CU", &E08_CU},
                               {u"Horario", &Horario}})
    leerColumna(fila, nombre, *campo);
  leerColumna(fila, u"TOTE", TOTE);
  leerColumna(fila, u"TOCO", TOCO);
  leerColumna(fila, u"PITO", PITO);
  leerColumna(fila, u"SALT", SALT);
  leerColumna(fila, u"PRLI", PRLI);
}

void Grupo::leerAcceso(const dao::Recordset& fila) {
  leerColumna(fila, u"remoto", Acceso);
  if (!Acceso || Acceso == TipoAcceso::Ninguno) return;
  if (Acceso == TipoAcceso::Directo)
    leerColumna(fila, u"canal", Canal);
  else
    leerColumna(fila, u"telef", Telefono);
}

void Grupo::leerTicket(const dao::Recordset& fila) {
  QString flags;
  const int c = fila.columna(u"TK_FLAGS");
  if (c >= 0 && !fila.nulo(c)) {
    flags = fila.texto(c);
    for (size_t i = 0; i < TicketFlags.size(); ++i)
      TicketFlags[i] =
          static_cast<qsizetype>(i) < flags.size() && flags[static_cast<qsizetype>(i)] == u'1';
  }
  int copia = 0;
  leerColumna(fila, u"TK_CPIA", copia);
  Copia = copia != 0;
  CopiaBarras = copia > 1;
  leerColumna(fila, u"TK_TCOP", CopiaPausa);
}

Resultado<> Grupo::leerOperadores(const dao::Recordset& fila) {
  for (int n = 1; n <= MaxOperadores(tipo_); ++n) {
    OperadorGrupo& o = operadoresGrupo_[static_cast<size_t>(n - 1)];
    if (!leerColumna(fila, conNumero(u"OP", n, u"_C"), o.codigo)) break;
    if (!leerColumna(fila, conNumero(u"OP", n, u"_T"), o.training)) break;
    TARVO_TOMAR(const auto nombre, nombreOperador(o.codigo));
    o.nombre = nombre;
  }
  return {};
}

Resultado<> Grupo::leerDepartamentos(dao::Database& db, const dao::Recordset& fila) {
  for (int n = 1; n <= 5; ++n) {
    const int c = fila.columna(conNumero(u"IVA", n));
    if (c >= 0 && !fila.nulo(c))
      ivas_[static_cast<size_t>(n - 1)] = static_cast<float>(fila.real(c) / 100);
  }
  TARVO_TOMAR(const auto depts, db.OpenTable(u"DEPTS", u"PrimaryKey"));
  for (int n = 1; n <= MaxDepartamentos(tipo_); ++n) {
    const auto i = static_cast<size_t>(n - 1);
    if (!leerColumna(fila, conNumero(u"IVD", n), ivaDepartamentos_[i])) break;
    TARVO_TOMAR(const auto hallado, depts->Seek(dao::Busca::Igual, seccion, n));
    if (hallado) nombresDepartamentos_[i] = depts->texto(depts->columna(u"NomDep"));
  }
  return {};
}

Resultado<> Grupo::leerMiembros(dao::Database& db) {
  return dao::recorrer(db.consultar(u"select * from BZAS where SUGPO=? order by NMBZA", *codigo_),
                       [this](const dao::Recordset& fila) {
                         Miembro m = tipo_ == TipoGrupo::Registradoras
                                         ? Miembro(Registradora(idioma_))
                                         : Miembro(Balanza(idioma_));
                         const int numero = std::visit(
                             [&fila](auto& maquina) {
                               maquina.LetValues(fila);
                               return maquina.Numero.value_or(0);
                             },
                             m);
                         LasBalanzas.insert_or_assign(numero, std::move(m));
                       });
}

}  // namespace tarvo::devices
