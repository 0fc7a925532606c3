// The members of a group: scales and cash registers. Plain data with load, store and a clipboard
// form. Columns, Null rules and the clipboard form: docs/formatos.md.
#pragma once

#include <QString>
#include <array>
#include <optional>

#include "core/ajustes/Ajustes.h"
#include "core/dao/Recordset.h"

namespace tarvo::devices {

// The three keyboard texts.
class obTeclado {
 public:
  explicit obTeclado(Idioma idioma = Idioma::Espanol);
  // Keeps the model and replaces the three texts by its defaults.
  void tipo(int modelo);
  QString Teclado, HARDPLU, TARASME;
  bool operator==(const obTeclado&) const = default;

 private:
  Idioma idioma_;
  int tipo_ = 0;
};

// The advertising message.
struct obPublici {
  QString mensaje;
  int Modo = 0, Tiempo = 0;
  bool operator==(const obPublici&) const = default;
};

// The part common to scales and registers.
class Maquina {
 public:
  explicit Maquina(Idioma idioma);

  int tipo() const { return tipo_; }
  void tipo(int modelo);  // also loads the model's default keyboard

  std::optional<int> Numero;
  // On its RS-485 bus. Of a scale it is kept as it was stored.
  std::optional<int> Direccion;
  obTeclado Teclado;
  obPublici Publici;
  QString RazonSo;  // ticket lines, "C:f:text" or "P:f:text"
  bool CB_Habil = true;
  int CB_tpEAN = 2;
  qint64 CB_pFija = 0;
  QString CB_Fmato = QStringLiteral("CCCCCCKIIIII");
  bool FG_PrLib = true, FG_PrEsp = true, FG_Devol = true, FG_Abono = true, FG_DcSbt = true;
  bool FG_HabDp = false;
  int PL_digEn = 7;
  std::optional<qint64> PL_pFija;
  bool operator==(const Maquina&) const = default;

 protected:
  // The common columns, read from and written to the row under the cursor.
  void leerComunes(const dao::Recordset& fila);
  void ponerComunes(dao::Recordset& fila) const;
  template <class V, class M>
  static void columnas(V&& v, M& m);
  void normalizarPLU();
  bool espanol() const { return idioma_ == Idioma::Espanol; }
  Idioma idioma_;

 private:
  friend class TextoMaquina;
  int tipo_ = 0;
};

class Balanza final : public Maquina {
 public:
  explicit Balanza(Idioma idioma = Idioma::Espanol) : Maquina(idioma) {}
  std::optional<TipoGrupo> TipoDeGrupo() const;
  // REQUIRES n from 11 to 20.
  QString Formato(int n) const { return formatos_.at(static_cast<size_t>(n - 11)); }
  void Formato(int n, const QString& formato) {
    formatos_.at(static_cast<size_t>(n - 11)) = formato;
  }
  // REQUIRE n from 1 to 3.
  int CassModo(int n) const { return modos_.at(static_cast<size_t>(n - 1)); }
  void CassModo(int n, int modo) { modos_.at(static_cast<size_t>(n - 1)) = modo; }
  int CassOper(int n) const { return opers_.at(static_cast<size_t>(n - 1)); }
  void CassOper(int n, int oper) { opers_.at(static_cast<size_t>(n - 1)) = oper; }

  void LetValues(const dao::Recordset& fila);
  void GetValues(dao::Recordset& fila) const;
  QString Texto() const;
  // False, and nothing changed, for a text that isn't the whole form of a scale.
  bool Texto(const QString& texto);
  bool operator==(const Balanza&) const = default;

 private:
  std::array<QString, 10> formatos_;
  std::array<int, 3> modos_{0, 2, 2}, opers_{1, 1, 1};
};

class Registradora final : public Maquina {
 public:
  explicit Registradora(Idioma idioma = Idioma::Espanol) : Maquina(idioma) {}
  void LetValues(const dao::Recordset& fila);
  void GetValues(dao::Recordset& fila) const;
  QString Texto() const;
  bool Texto(const QString& texto);
  bool operator==(const Registradora&) const = default;
};

}  // namespace tarvo::devices
