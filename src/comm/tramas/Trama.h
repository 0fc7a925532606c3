// The two frame protocols of the machines as pure functions: bytes in, frames out, with no state
// but the caller's. Layouts and checks: docs/protocolos.md.
//
// A reader never keeps more than kMaxPendiente bytes of an unfinished frame: a longer one is noise
// and is dropped.
#pragma once

#include <QByteArray>
#include <optional>
#include <vector>

namespace tarvo::tramas {

inline constexpr char kSTX = 0x02, kETX = 0x03, kACK = 0x06, kNAK = 0x15, kCR = 0x0D;
inline constexpr int kCodigoTransaccion = 995;
inline constexpr int kMaxPendiente = 64 * 1024;

// --- VEK: decimal text, one-byte acknowledgement ---
struct TramaVEK {
  int secuencia = 0;  // 0 to 99
  int addr = -1;      // -1 with the wide layout
  int codigo = 0;
  QByteArray datos;
  bool operator==(const TramaVEK&) const = default;
};

// The address, code and data fields, which a repeat keeps. An end sign inside the data would cut
// the frame in two, so it goes out as a blank. REQUIRES: addr 0 to 99, codigo 0 to 9999.
QByteArray cuerpoVEK(int addr, int codigo, const QByteArray& datos);
// A whole frame around a body. The station field names ours, 0, or the one a question of the
// exploration is for. REQUIRES: estacion 0 to 20.
QByteArray construirVEK(int secuencia, const QByteArray& cuerpo, int estacion = 0);

// The result of reading a buffer. `mala` means that the step ends at once: the frame is removed
// from the buffer, and any good frame read before it in this call is dropped.
struct LecturaVEK {
  std::optional<TramaVEK> trama;  // the last good frame
  std::vector<TramaVEK> previas;  // good frames before it, in their order
  bool mala = false;
};
// Cuts every whole frame off `buffer`; an unfinished one stays in it. `ancha` reads the layout of
// codes above 999. An acknowledgement where a frame would begin ends the reading and stays for its
// own reader.
LecturaVEK leerVEK(QByteArray& buffer, bool ancha);
// A frame read with the wide layout, read again with the usual one.
TramaVEK estrecha(const TramaVEK& ancha);

// An answer to the exploration, which names the station that sent it: 0 to 35.
struct RespuestaDeEstacion {
  int estacion = 0;
  TramaVEK trama;
};
// A piece that ends in ETX. Nothing unless it has an acknowledgement with a good frame of address 0
// right after it, up to its end; what comes before them is noise.
std::optional<RespuestaDeEstacion> leerRespuestaVEK(const QByteArray& pieza);

// --- NODAL: hexadecimal, acknowledgement frame ---
inline constexpr int kNodalAck = 6, kNodalRechazo = 7, kNodalEspera = 8, kNodalNak = 21,
                     kNodalFin = 26;

struct TramaNODAL {
  int origen = 0, destino = 0;  // node numbers, 0 to 255
  int secuencia = 0;            // 0 to 255
  int codigo = 0;               // 0 to 255
  QByteArray datos;
  bool operator==(const TramaNODAL&) const = default;
};

// A return inside the data would cut the frame in two, so it goes out as a blank.
QByteArray construirNODAL(const TramaNODAL& trama);
// The contents of the buffer up to its first CR.
struct LecturaNODAL {
  bool hayLinea = false;            // false: no CR yet, the buffer is untouched
  std::optional<TramaNODAL> trama;  // nothing if the line was no good frame
};
LecturaNODAL leerNODAL(QByteArray& buffer);

}  // namespace tarvo::tramas
