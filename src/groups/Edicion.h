// A group while a person edits it: a copy whose machines are in ten places, and what of it must be
// sent to them once it is stored.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "core/textos/Textos.h"
#include "core/valores/Resultado.h"
#include "devices/Grupo.h"

namespace tarvo::groups {

inline constexpr int kSitios = 10;           // from 0; the place of a machine is its number
inline constexpr int kUltimaDireccion = 16;  // of a register

// What was changed, by where a person changes it; in the order in which it is sent.
enum class Cambio : int { Opciones, Etiquetas, Config, Teclado, Ticket, Tarifa };

struct TareaDebida {
  TipoTarea clase = TipoTarea::TxPlus;
  bool todo = true;
  bool operator==(const TareaDebida&) const = default;
};

class Marcas {
 public:
  static Marcas todas();
  void poner(Cambio cambio) { puestas_.at(static_cast<size_t>(cambio)) = true; }
  bool tiene(Cambio cambio) const { return puestas_.at(static_cast<size_t>(cambio)); }
  // What a group of that kind takes of it, in order.
  std::vector<TareaDebida> envios(TipoGrupo tipo) const;
  bool operator==(const Marcas&) const = default;

 private:
  std::array<bool, 6> puestas_{};
};

struct GrupoEditado {
  devices::Grupo grupo{};
  int codigo = 0;
  QString nombre = {};
  Marcas marcas;
  bool operator==(const GrupoEditado&) const = default;
};

devices::Maquina& maquinaDe(devices::Miembro& miembro);
const devices::Maquina& maquinaDe(const devices::Miembro& miembro);
// In that place; null if it is empty.
const devices::Miembro* enSitio(const devices::Grupo& grupo, int sitio);
// The kind of group that takes it.
TipoGrupo tipoPara(const devices::Miembro& miembro);

// A machine that comes from the list of models: a scale, or a register (`modelo` nothing) with the
// first address that no other register of the group has.
devices::Miembro maquinaNueva(const devices::Grupo& grupo, std::optional<int> modelo,
                              Idioma idioma);
// What an address of a register must be, in words.
QString reglaDireccion(const Textos& textos);
// A register that comes to that place: it keeps its address if no other register of the group has
// it, else it gets the first free one.
void darDireccion(const devices::Grupo& grupo, int sitio, devices::Miembro& miembro);
// The clipboard form, and the machine of one; nothing for any other text. `cajas`: a register.
QString textoDe(const devices::Miembro& miembro);
std::optional<devices::Miembro> leerMaquina(const QString& texto, bool cajas, Idioma idioma);

// Puts a copy of the machine into the place, instead of the one that is there. The first machine of
// a group decides its kind; Restriccion, and nothing changed, for one of another kind later.
// REQUIRE places from 0 to 9.
Resultado<> colocar(devices::Grupo& grupo, int sitio, devices::Miembro miembro,
                    const Textos& textos);
void vaciar(devices::Grupo& grupo, int sitio);
// That place if it is free, else the next free one, from the last on to the first; nothing when all
// ten are taken.
std::optional<int> sitioLibre(const devices::Grupo& grupo, int desde);
// The machines of two places change places.
void permutar(devices::Grupo& grupo, int sitio, int otro);

// A format of labels, with its set of texts if it has one. All formats of a scale share one set,
// for a scale is sent one: that of its formats, or none.
struct FormatoEtiqueta {
  QString nombre = {};
  std::optional<QString> juego = {};
  bool operator==(const FormatoEtiqueta&) const = default;
};
// Nothing while no key of the scale has a format.
std::optional<std::optional<QString>> juegoDe(const devices::Balanza& balanza,
                                              const std::vector<FormatoEtiqueta>& formatos);
// Those that its keys can still take.
std::vector<FormatoEtiqueta> ofrecidos(const devices::Balanza& balanza,
                                       const std::vector<FormatoEtiqueta>& formatos);
// Whether scales of that model have the cassettes 2 and 3.
bool conTresCasetes(int modelo);

// Gives the machine what a dialog edits of another one.
using Parte = void (*)(const devices::Miembro& de, devices::Miembro& a);
void copiarMensaje(const devices::Miembro& de, devices::Miembro& a);
void copiarOpciones(const devices::Miembro& de, devices::Miembro& a);
void copiarCasetes(const devices::Miembro& de, devices::Miembro& a);
void copiarCabecera(const devices::Miembro& de, devices::Miembro& a);

}  // namespace tarvo::groups
