#include "devices/Maquina.h"

#include "devices/Fila.h"
#include "devices/Modelos.h"
#include "devices/TecladosDefault.h"

namespace tarvo::devices {

obTeclado::obTeclado(Idioma idioma) : idioma_(idioma) {
  tipo(kSinModelo);
}

void obTeclado::tipo(int modelo) {
  tipo_ = modelo;
  Teclado = TecladoDefecto(modelo, idioma_);
  HARDPLU = HardPluDefecto();
  TARASME = TarasDefecto();
}

Maquina::Maquina(Idioma idioma)
    : Teclado(idioma), RazonSo(QStringLiteral("C:0:\r\n").repeated(6)), idioma_(idioma) {}

void Maquina::tipo(int modelo) {
  tipo_ = modelo;
  Teclado.tipo(modelo);
}

// Every column with its member; the model comes first, since it fills the keyboard.
template <class V, class M>
void Maquina::columnas(V&& v, M& m) {
  v(u"Teclado", m.Teclado.Teclado);
  v(u"HARDPLU", m.Teclado.HARDPLU);
  v(u"TARASME", m.Teclado.TARASME);
  v(u"MESSAG", m.Publici.mensaje);
  v(u"MESS_T", m.Publici.Modo);
  v(u"MESS_R", m.Publici.Tiempo);
  v(u"RZSOCIAL", m.RazonSo);
  v(u"HABIL_BC", m.CB_Habil);
  v(u"TIPO_BC", m.CB_tpEAN);
  v(u"FIJO_BC", m.CB_pFija);
  v(u"FORMA_BC", m.CB_Fmato);
  v(u"P_LIBRE", m.FG_PrLib);
  v(u"P_ESPE", m.FG_PrEsp);
  v(u"P_VOID", m.FG_Devol);
  v(u"RESO", m.FG_Abono);
  v(u"DCTSTT", m.FG_DcSbt);
  v(u"HABIL_DEP", m.FG_HabDp);
  v(u"DIGIT_PLU", m.PL_digEn);
}

void Maquina::normalizarPLU() {
  if (PL_digEn == 7 || PL_pFija == 0) PL_pFija.reset();
}

void Maquina::leerComunes(const dao::Recordset& fila) {
  int modelo = 0, numero = 0;
  leerColumna(fila, u"tipo", modelo);
  leerColumna(fila, u"NMBZA", numero);
  tipo(modelo);
  Numero = numero;
  const int c = fila.columna(u"Addr");
  Direccion =
      c < 0 || fila.nulo(c) ? std::nullopt : std::optional(static_cast<int>(fila.entero(c)));
  columnas([&](const char16_t* nombre, auto& campo) { leerColumna(fila, nombre, campo); }, *this);
  qint64 fija = 0;
  leerColumna(fila, u"FIJO_PLU", fija);
  PL_pFija = fija;
  normalizarPLU();
}

void Maquina::ponerComunes(dao::Recordset& fila) const {
  ponerColumna(fila, u"tipo", tipo_);
  ponerColumna(fila, u"NMBZA", Numero.value_or(0));
  ponerColumna(fila, u"Addr", Direccion ? dao::Valor(*Direccion) : dao::Valor());
  columnas([&](const char16_t* nombre, const auto& campo) { ponerColumna(fila, nombre, campo); },
           *this);
  ponerColumna(fila, u"FIJO_PLU", PL_pFija ? dao::Valor(*PL_pFija) : dao::Valor());
}

std::optional<TipoGrupo> Balanza::TipoDeGrupo() const {
  return devices::TipoDeGrupo(tipo());
}

void Balanza::LetValues(const dao::Recordset& fila) {
  leerComunes(fila);
  for (int n = 11; n <= 20; ++n)
    leerColumna(fila, conNumero(u"ETQ", n), formatos_[static_cast<size_t>(n - 11)]);
  for (int n = 1; n <= 3; ++n) {
    leerColumna(fila, conNumero(u"MODAL", n), modos_[static_cast<size_t>(n - 1)]);
    leerColumna(fila, conNumero(u"OPERA", n), opers_[static_cast<size_t>(n - 1)]);
  }
}

void Balanza::GetValues(dao::Recordset& fila) const {
  ponerComunes(fila);
  for (int n = 11; n <= 20; ++n) ponerColumna(fila, conNumero(u"ETQ", n), Formato(n));
  for (int n = 1; n <= 3; ++n) {
    ponerColumna(fila, conNumero(u"MODAL", n), CassModo(n));
    ponerColumna(fila, conNumero(u"OPERA", n), CassOper(n));
  }
}

void Registradora::LetValues(const dao::Recordset& fila) {
  leerComunes(fila);
}

void Registradora::GetValues(dao::Recordset& fila) const {
  ponerComunes(fila);
}

}  // namespace tarvo::devices
