// Payloads of the configuration of the machines: keyboards, ticket headers, the options of a group
// and of a scale, and label formats. Kinds of group 1 and 4 (VEK), and 2 (NODAL) where told. Frame
// by frame in the order in which they are sent: docs/protocolos.md.
#pragma once

#include <QString>
#include <array>
#include <optional>
#include <vector>

#include "comm/maquinas/Campos.h"

namespace tarvo::maquinas {

// The subject of a frame, for whoever reports it.
enum class Asunto : int {
  PluDirecto,
  TaraDirecta,
  Tecla,
  LineaDeTicket,
  PartesDelTicket,
  CopiaDelTicket,
  FormatosDeCodigo,
  Iva,
  Departamento,
  EsperaDeTecla,
  EsperaDePlu,
  Pitido,
  SalidaDelTotal,
  NumerosComoPrecios,
  Operador,
  Mensaje,
  Permisos,
  BarrasDelTicket,
  CodigoDePlu,
  Casetes,
  UsoDeDepartamentos,
  FormatoDeEtiqueta,
  TextoDeEtiqueta,
};
inline constexpr int kAsuntos = 23;

// Why a machine gets something else than what is stored.
enum class Causa : int {
  NoCabe,            // its field takes a part of it
  OtrasCifras,       // what the field takes reads otherwise
  EnBlanco,          // the field takes nothing of it
  OperadorQueFalta,  // goes as a blank one
  FormatoQueFalta,   // its label position is cleared
  LineaVacia,        // a format ends at its first empty line
  JuegoQueFalta,     // the shop's own texts go
  OtroJuego,         // a scale has one text set
  TeclaRepetida,     // a later line has the same key
  LineaPerdida,      // of a keyboard: no frame carries it
  DeSobra,           // the machine has no place for another one
};
// A stored row, what it says, and what the machine gets in its place.
struct Diferencia {
  Asunto asunto = Asunto::Tecla;
  int numero = 0;
  Causa causa = Causa::NoCabe;
  QString escrito, va = {};
};
using Diferencias = std::vector<Diferencia>;

struct Pieza {
  Asunto asunto = Asunto::Tecla;
  int numero = 0;  // of the key, line, position..., 0 where there is only one
  Peticion peticion;
  bool vale = true;   // false: a number doesn't fit its field, or a stored line can't be read
  QString cambiadas;  // letters that the machine lacks, sent as others
  Diferencias diferencias;
};
using Piezas = std::vector<Pieza>;

// The three texts of a keyboard. `numero`: of the machine in its group. Kind 2 takes `Teclado`
// only. All keys from 1 to `teclas` are sent, those without a line as doing nothing.
struct TextosDeTeclado {
  QString HARDPLU, TARASME, Teclado;
};
Piezas piezasDeTeclado(TipoGrupo tipo, int numero, int teclas, const TextosDeTeclado& textos);
// The lines that don't count in the machine. Those after the last of a key that it has are of
// another model's keyboard, and no loss.
Diferencias perdidasDeTeclado(TipoGrupo tipo, int teclas, const TextosDeTeclado& textos);

// The header lines of the ticket: six, five for kind 2.
Piezas piezasDeTicket(TipoGrupo tipo, int numero, const QString& RZSOCIAL);
// The further ones.
Diferencias perdidasDeTicket(TipoGrupo tipo, const QString& RZSOCIAL);

// A row of GRUPOS. Kinds 1 and 4.
struct OpcionesDeGrupo {
  QString TK_FLAGS;
  qint64 TK_CPIA = 0, TK_TCOP = 0;
  QString E13_PE, E08_PE, E13_CU, E08_CU;
  std::array<qint64, 5> IVA{};  // hundredths of a per cent
  struct Departamento {
    qint64 iva = 0;  // number of the rate
    QString nombre;
  };
  std::vector<Departamento> departamentos;  // from 1, as many as the kind has
  qint64 TOTE = 0, TOCO = 0;
  bool PITO = false, SALT = false, PRLI = false;
  struct Operador {
    QString nombre;
    bool training = false;
    qint64 falta = 0;  // the code of one that doesn't exist
  };
  std::vector<Operador> operadores;  // from position 1
};
Piezas piezasDeGrupo(TipoGrupo tipo, const OpcionesDeGrupo& o);

// A row of BZAS. Kinds 1 and 4. `conDepartamentos`: the country's scales have a switch for them.
struct OpcionesDeBalanza {
  bool finDeMensajeLargo = false;  // models whose message ends in another character
  QString MESSAG;
  qint64 MESS_R = 0, MESS_T = 0;
  std::array<bool, 5> permisos{};  // P_LIBRE, P_ESPE, P_VOID, RESO, DCTSTT
  bool HABIL_BC = false;
  qint64 TIPO_BC = 0, FIJO_BC = 0;
  QString FORMA_BC;
  qint64 DIGIT_PLU = 0, FIJO_PLU = 0;
  std::array<qint64, 3> modos{}, operadores{};
  bool HABIL_DEP = false;
};
Piezas piezasDeBalanza(TipoGrupo tipo, const OpcionesDeBalanza& o, bool conDepartamentos);

// The ten label positions of a scale: the text of each format, nothing for a position without one.
// `textos`: the label texts 21 to 40, where the country's scales take them.
inline constexpr int kTextosDeBirch = 9;  // of these
using FormatosDeEtiqueta = std::array<std::optional<QString>, 10>;
Piezas piezasDeEtiquetas(TipoGrupo tipo, const FormatosDeEtiqueta& formatos,
                         const std::optional<std::array<QString, 20>>& textos);

}  // namespace tarvo::maquinas
