// The settings of TARVO.INI: read once at the start, held in memory, written whole at the end of a
// run and whenever a window or the session changes one. Those of general use are members of
// Ajustes; a room adds its own (Sala.h). Keys, defaults and syntax: docs/formatos.md.
#pragma once

#include <QString>
#include <any>
#include <array>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "core/valores/Fecha.h"
#include "core/valores/Resultado.h"
#include "core/valores/Tipos.h"

namespace tarvo {

namespace ini {
struct Linea;
}

enum class Idioma { Espanol = 0, I = 1, F = 2, UK = 3, PL = 4, P = 5 };

// The range of a numeric setting, both when it is read and when it is typed.
struct Limites {
  int menor, mayor;
  constexpr bool admite(double n) const { return n >= menor && n <= mayor; }
};
inline constexpr Limites kLimitesRespuesta{1, 10 * 60 * 1000};  // ms to wait for an answer
inline constexpr Limites kLimitesEspera{0, 10 * 60 * 1000};     // ms, may be 0
inline constexpr Limites kLimitesIntentos{0, 999};              // repeats

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

class Ajustes;

// A key of the file, of any room.
struct ClaveIni {
  int sitio = 0;
  QString nombre;
  Limites indices{};
  std::function<bool(Ajustes&, int indice, const QString& valor)> leer;
  std::function<QString(const Ajustes&, int indice)> escribir;
  std::function<bool(const Ajustes&, int indice)> seEscribe;  // empty: always
};

// The settings of a room: its struct with the defaults, and its keys. Created by salaDeAjustes() of
// Sala.h.
struct SalaDeAjustes {
  std::any valor;
  std::vector<ClaveIni> claves;
  std::function<void(Ajustes&)> antesDeLeer, trasLeer;  // may be empty
};

class Ajustes {
 public:
  // CargaDefectos: the defaults for a program folder (an absolute path) and a language. `salas` are
  // the rooms with settings in the file. Ends the program if two of them have the same struct, or a
  // key of the same name or place.
  Ajustes(QString carpeta, Idioma idioma, const std::vector<SalaDeAjustes>& salas = {});

  // The settings of a room, by its struct; the reference is valid as long as this object. Ends the
  // program if the room is not among `salas`.
  template <class T>
  const T& de() const {
    for (const std::any& valor : deLasSalas_)
      if (const T* suyo = std::any_cast<T>(&valor)) return *suyo;
    faltaSala(typeid(T).name());
  }
  template <class T>
  T& de() {
    return const_cast<T&>(std::as_const(*this).de<T>());
  }

  // Reads the file over the present values. A missing file changes nothing and is no error. An
  // unreadable one (no rights, a folder, too large) changes nothing either, and its error is
  // returned for the caller to report.
  Resultado<> LeerConfig();
  // Writes the file whole beside its place and renames it. Of keys that this program hasn't changed
  // since it read or wrote the file the file as it is now counts, whoever has changed it; the
  // settings in memory stay.
  Resultado<> GuardarConfig();
  // The keys that others have changed in the file since this program read it: it goes on with their
  // former values until it is started again. Empty too if the file can't be read.
  QStringList cambiadosFuera() const;
  // Whether the file has what this program last read or wrote.
  bool sigueIgual() const;
  QString rutaConfig() const;
  // The same for a text: LeerConfig and GuardarConfig without the file.
  void leer(const QString& texto);
  QString escribir() const;

  // The name of a file as a setting or a process gives it ("\" and "/" separate folders, case
  // ignored) as a path of this system: relative names are relative to `base`; an existing file is
  // found regardless of case, the exact name first. A missing one keeps the case it was given.
  static QString ruta(const QString& nombre, const QString& base);
  // A path as it is kept on disk: relative to `base` when it lies below it, so that it still names
  // the same file when the folder is moved or copied. `ruta` turns it back.
  static QString relativa(const QString& ruta, const QString& base);

  bool EsEspanol() const { return idioma == Idioma::Espanol; }
  bool NoEspanol() const { return !EsEspanol(); }

  const QString carpeta;  // the program's folder
  const Idioma idioma;
  const LimitesClases clases;

  // Absolute paths of this system once read, written relative where they are inside the folder;
  // CopiaSeguridad may be empty.
  QString HomeDir, BaseDatos, CopiaSeguridad;
  int WhoAmI = 0;
  int MonedaNativa = 1, MonedaPreferente = 1;
  std::array<QString, 2> MonedaLogo;
  float Euro = 0;
  int decimalesLocal = 0;  // by language, not stored
  // Kept for rooms to come.
  std::array<int, 2> OpcionesStockCompras{0, 0};
  std::array<QString, 41> TextoEtiquetas;  // 1 to 40; 1 to 20 come from the table of texts

  // A line of the file that wasn't fully understood, and the value used in its place; empty where
  // the line is ignored.
  struct Duda {
    QString linea, vale, clave;
  };
  std::vector<Duda> dudas;
  // A key that another program had changed as well: what it had written is lost.
  struct Pisada {
    QString clave, perdido, vale;
  };
  std::vector<Pisada> pisadas;
  // A value that wasn't understood whole stays in the file as it was written, and is a doubt at
  // each start, until the setting has another value or a person saves it as it is: then this
  // forgets it, by its key.
  void confirmar(const QString& clave);
  bool baseNombrada = false;           // BaseDatos was in the file
  bool monedaLeida = false;            // MonedaNativa was in the file and readable
  void ponerMonedaNativa(int moneda);  // and what follows from it

 private:
  [[noreturn]] static void faltaSala(const char* tipo);
  void ponerSala(const SalaDeAjustes& sala);
  void ordenarClaves();
  void leerLinea(const ini::Linea& linea, std::set<std::pair<QString, int>>& aceptadas);
  const ClaveIni* claveDe(const QString& clave, int indice) const;  // null for an unknown key
  QString escrito(const ClaveIni& clave, int indice) const;
  const QString* rechazado(const ClaveIni& clave, int indice) const;

  // The values of the lines, by key in capitals and index.
  using Renglones = std::map<std::pair<QString, int>, QString>;
  Renglones renglones() const;
  Renglones renglonesDe(const QString& texto) const;
  static Renglones losDelTexto(const Renglones& todos, const QString& texto);
  Renglones delFichero(const QByteArray& bytes) const;
  QString componer(const Renglones& renglones) const;
  Renglones juntar(const Renglones& ahora, const Renglones& suyos,
                   std::vector<Pisada>& perdidas) const;
  QStringList ajenos(const Renglones& suyos) const;

  // When the file was last read or written: its bytes, what they say, and what this program would
  // have written.
  struct Escrito {
    QByteArray bytes;
    Renglones delFichero, nuestros;
  };
  std::optional<Escrito> ultimo_;
  struct Rechazado {
    QString escrito, vale;  // what the file says, and the value in its place
  };
  std::map<std::pair<QString, int>, Rechazado> rechazados_;  // by key in capitals and index
  std::vector<std::any> deLasSalas_;
  std::vector<ClaveIni> claves_;  // as they are in the file
  std::vector<std::function<void(Ajustes&)>> antesDeLeer_, trasLeer_;
};

}  // namespace tarvo
