// The settings of TARVO.INI: read once at the start, held in memory, written whole at the end of a
// run and whenever a window or the session changes one. Keys, defaults and syntax:
// docs/formatos.md.
#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <map>
#include <vector>

#include "core/valores/Fecha.h"
#include "core/valores/Resultado.h"
#include "core/valores/Tipos.h"

namespace tarvo {

enum class Idioma { Espanol = 0, I = 1, F = 2, UK = 3, PL = 4, P = 5 };

// The range of a numeric setting, both when it is read and when it is typed.
struct Limites {
  int menor, mayor;
  constexpr bool admite(double n) const { return n >= menor && n <= mayor; }
};
inline constexpr Limites kLimitesRespuesta{1, 10 * 60 * 1000};  // ms to wait for an answer
inline constexpr Limites kLimitesEspera{0, 10 * 60 * 1000};     // ms, may be 0
inline constexpr Limites kLimitesIntentos{0, 999};              // repeats

// Settings of one of the four configured channels.
struct ParamCanal {
  int Puerto = 1;
  TipoAcceso Device = TipoAcceso::Ninguno;  // a connector needs no channel
  QString RS232 = QStringLiteral("9600,O,7,1");
  QString IniMdm0 = QStringLiteral("AT&FE0V0Q0Y1L3");
  QStringList IniMdmX{QStringLiteral("AT&C1"), QStringLiteral("AT&D2"), QStringLiteral("AT&A0")};
  QString PfxDial = QStringLiteral("ATDT");
  int Intentos = 4;
  int Espera = 40;
  int ATHang = 10000;
  int ControlLinea = 1;
  bool operator==(const ParamCanal&) const = default;
};

// The kinds of task that the language has.
struct LimitesClases {
  int ClaseTxMin = 1, ClaseTxMax = 11;
  int ClaseRxMin = 16, ClaseRxMax = 21;
  int ClaseDocMin = 22, ClaseDocMax = 23;
  static LimitesClases de(Idioma idioma);
  bool tiene(TipoTarea tarea) const {
    const int clase = numeroDe(tarea);
    return (clase >= ClaseTxMin && clase <= ClaseTxMax) ||
           (clase >= ClaseRxMin && clase <= ClaseRxMax) ||
           (clase >= ClaseDocMin && clase <= ClaseDocMax);
  }
};

class Ajustes {
 public:
  // CargaDefectos: the defaults for a program folder (an absolute path) and a language. SesionHasta
  // and SesionACero begin at `ahora`.
  Ajustes(QString carpeta, Idioma idioma, Fecha ahora = {});

  // Reads the file over the present values. A missing file changes nothing and is no error. An
  // unreadable one (no rights, a folder, too large) changes nothing either, and its error is
  // returned for the caller to report.
  Resultado<> LeerConfig();
  // Writes the file whole beside its place and renames it.
  Resultado<> GuardarConfig() const;
  QString rutaConfig() const;
  // The same for a text: LeerConfig and GuardarConfig without the file.
  void leer(const QString& texto);
  QString escribir() const;

  // The name of a file as a setting or a process gives it ("\" and "/" separate folders, case
  // ignored) as a path of this system: relative names are relative to `base`; an existing file is
  // found regardless of case, the exact name first. A missing one keeps the case it was given.
  static QString ruta(const QString& nombre, const QString& base);

  bool EsEspanol() const { return idioma == Idioma::Espanol; }
  bool NoEspanol() const { return !EsEspanol(); }

  const QString carpeta;  // the program's folder
  const Idioma idioma;
  const LimitesClases clases;

  // Absolute paths of this system once read, written relative where they are inside the folder;
  // CopiaSeguridad may be empty.
  QString HomeDir, BaseDatos, CopiaSeguridad;
  int WhoAmI = 0;
  int TimeOut = 10000, TimeCero = 150000, IntentosManual = 0, TimeACK = 2000,
      FactorEsperaNDL = 2000;
  // CalculoPrecios: two or four values.
  struct CalculoPrecios {
    bool a = false;
    int b = 0;
    bool conSegundo = false;
    bool c = false;
    int d = 0;
  } calculoPrecios;
  std::array<ParamCanal, 4> canales;
  int SesionAbier = 0;
  Fecha SesionHasta, SesionACero;
  std::vector<int> UltimosPeriodos;
  Fecha InicioHorario, FinalHorario;  // fractions of a day
  float ToleranciaHora = 0.25F;
  int MonedaNativa = 1, MonedaPreferente = 1;
  std::array<QString, 2> MonedaLogo;
  float Euro = 0;
  int decimalesLocal = 0;                // by language, not stored
  std::array<bool, 7> FestivoSemanal{};  // index 0 Monday to 6 Sunday
  int NumeroPedido = 0, NumeroInventario = 0;
  std::array<int, 2> EnviarCambios{1, 1}, OpcionesStockCompras{0, 0};
  int ModoIntroRapido = 2;
  QString ParrillaRapida =
      QStringLiteral("1,1,2,1,1,0,0,0,0,0,0,0,0,0,0,0,-1,,,,,");  // as in the file
  std::array<QString, 41> TextoEtiquetas;  // 1 to 40; 1 to 20 come from the table of texts
  QString PrefijoCodigos;
  int NumPreciosAlta = 3, NumTarifasAlta = 8;
  struct Personal {
    QString titulo, proceso;
    bool operator==(const Personal&) const = default;
  };
  std::vector<Personal> personal;
  // A line of the file that wasn't fully understood, and the value used in its place; empty where
  // the line is ignored.
  struct Duda {
    QString linea, vale, clave;
  };
  std::vector<Duda> dudas;
  bool monedaLeida = false;            // MonedaNativa was in the file and readable
  void ponerMonedaNativa(int moneda);  // and what follows from it
  // An addition of ours: another device for a serial port, by port number.
  std::map<int, QString> RutaPuerto;
  // An addition of ours: scales may answer a question under a different code.
  bool AceptaOtroCodigo = false;

  // CONECTORES.INI: what a connector name stands for ("tcp:host:port", "serie:dev,9600,O,7,1",
  // "local:/path"), or empty if there is no such name. Read anew at each call.
  QString conector(const QString& nombre) const;

 private:
};

// The limits of the five communication times.
constexpr Limites limitesDe(int Ajustes::* campo) {
  if (campo == &Ajustes::IntentosManual) return kLimitesIntentos;
  return campo == &Ajustes::FactorEsperaNDL ? kLimitesEspera : kLimitesRespuesta;
}

// The same for the text of such a file.
QString buscarConector(const QString& texto, const QString& nombre);

}  // namespace tarvo
