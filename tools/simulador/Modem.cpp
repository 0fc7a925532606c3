#include "simulador/Modem.h"

#include <cctype>

namespace tarvo::simulador {
namespace {

constexpr qsizetype kOrdenMaxima = 200;

bool cifra(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

Modem::Modem(Cable& cable, Reloj& reloj, OpcionesModem opciones,
             std::function<void(const QByteArray&)> salida)
    : cable_(cable),
      reloj_(reloj),
      opciones_(std::move(opciones)),
      emisor_(reloj),
      temporizador_(reloj.temporizador([this] { alVencer(); })) {
  emisor_.conectar({std::move(salida), [](bool) {}});
}

Modem::~Modem() {
  if (cable_.abierto()) cable_.cerrar();
}

void Modem::recibir(const QByteArray& bytes) {
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    if (estado_ == Estado::Datos) {
      recibirDatos(bytes.mid(i));
      return;
    }
    recibirOrden(bytes[i]);
  }
}

// Any key while it dials cancels the call.
void Modem::recibirOrden(char c) {
  if (estado_ == Estado::Marcando) {
    if (c == '\n') return;
    temporizador_->parar();
    estado_ = Estado::Ordenes;
    decir(Resultado::NoCarrier);
    return;
  }
  if (eco_) emisor_.enviar(QByteArray(1, c));
  if (c == '\r') {
    ejecutar(std::exchange(orden_, {}));
  } else if (std::isprint(static_cast<unsigned char>(c)) && orden_.size() < kOrdenMaxima) {
    orden_ += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  }
}

void Modem::ejecutar(QByteArray orden) {
  orden.replace(' ', "");
  if (orden.isEmpty()) return;
  if (!orden.startsWith("AT") || !aplicar(orden.mid(2))) decir(Resultado::Error);
}

// Letters with an optional "&", "%" or "\" before and digits after. False if one is unknown.
bool Modem::aplicar(const QByteArray& orden) {
  for (qsizetype i = 0; i < orden.size();) {
    char prefijo = 0;
    if (orden[i] == '&' || orden[i] == '%' || orden[i] == '\\') prefijo = orden[i++];
    if (i >= orden.size()) return false;
    const char letra = orden[i++];
    if (!prefijo && letra == 'D') {
      marcar(orden.mid(i));
      return true;
    }
    int numero = 0;
    for (; i < orden.size() && cifra(orden[i]) && numero < 10000; ++i)
      numero = numero * 10 + (orden[i] - '0');
    if (!prefijo && letra == 'S' && i < orden.size() && orden[i] == '=')
      for (++i; i < orden.size() && cifra(orden[i]);) ++i;
    if (prefijo) {
      if (!std::isalpha(static_cast<unsigned char>(letra))) return false;
      if (prefijo == '&' && letra == 'F') restablecer();
      continue;
    }
    switch (letra) {
      case 'E':
        eco_ = numero != 0;
        break;
      case 'V':
        palabras_ = numero != 0;
        break;
      case 'Q':
        mudo_ = numero != 0;
        break;
      case 'X':
        extension_ = numero;
        break;
      case 'Z':
        colgar();
        restablecer();
        break;
      case 'H':
        colgar();
        break;
      case 'O':
        volverALinea();
        return true;
      case 'B':
      case 'I':
      case 'L':
      case 'M':
      case 'N':
      case 'S':
      case 'W':
      case 'Y':
        break;
      default:
        return false;
    }
  }
  decir(Resultado::Ok);
  return true;
}

void Modem::restablecer() {
  eco_ = palabras_ = true;
  mudo_ = false;
  extension_ = 4;
}

void Modem::marcar(const QByteArray& numero) {
  QByteArray cifras;
  for (const char c : numero)
    if (cifra(c)) cifras += c;
  marcados_.push_back(cifras);
  if (!opciones_.guion.empty()) {
    llamada_ = opciones_.guion.front();
    opciones_.guion.pop_front();
  } else {
    const auto sitio = opciones_.numeros.find(cifras);
    llamada_ = sitio == opciones_.numeros.end() ? Llamada::Connect : sitio->second;
  }
  if (cifras.isEmpty()) llamada_ = Llamada::NoCarrier;
  colgar();
  estado_ = Estado::Marcando;
  temporizador_->unaVez(opciones_.marcarMs);
}

void Modem::alVencer() {
  if (estado_ == Estado::Marcando) {
    finDeMarcar();
    return;
  }
  if (mases_.size() == 3) {
    estado_ = Estado::Ordenes;
    mases_.clear();
    decir(Resultado::Ok);
  } else {
    cable_.recibir(std::exchange(mases_, {}));
  }
}

void Modem::finDeMarcar() {
  estado_ = Estado::Ordenes;
  switch (llamada_) {
    case Llamada::NoCarrier:
      return decir(Resultado::NoCarrier);
    case Llamada::NoDialtone:
      return decir(Resultado::NoDialtone);
    case Llamada::Busy:
      return decir(Resultado::Busy);
    case Llamada::NoAnswer:
      return decir(Resultado::NoAnswer);
    case Llamada::Connect:
      break;
  }
  const bool abierto = cable_.abrir({[this](const QByteArray& bytes) {
                                       if (enLinea()) emisor_.enviar(bytes);
                                     },
                                     [this](bool) { perderPortadora(); }});
  if (!abierto) return decir(Resultado::NoAnswer);
  decirConnect();
  estado_ = Estado::Datos;
  ultimoByte_ = reloj_.monotono();
}

void Modem::volverALinea() {
  if (!cable_.abierto()) return decir(Resultado::NoCarrier);
  decirConnect();
  estado_ = Estado::Datos;
  ultimoByte_ = reloj_.monotono();
}

void Modem::recibirDatos(const QByteArray& bytes) {
  const bool soloMases = bytes.count('+') == bytes.size() && mases_.size() + bytes.size() <= 3;
  const bool silencio = reloj_.monotono() - ultimoByte_ >= opciones_.guardaMs;
  ultimoByte_ = reloj_.monotono();
  if (soloMases && (silencio || !mases_.isEmpty())) {
    mases_ += bytes;
    temporizador_->unaVez(opciones_.guardaMs);
    return;
  }
  temporizador_->parar();
  cable_.recibir(std::exchange(mases_, {}) + bytes);
}

void Modem::perderPortadora() {
  temporizador_->parar();
  mases_.clear();
  estado_ = Estado::Ordenes;
  decir(Resultado::NoCarrier);
}

void Modem::colgar() {
  if (cable_.abierto()) cable_.cerrar();
}

void Modem::decir(Resultado resultado) {
  switch (resultado) {
    case Resultado::Ok:
      return linea("OK", 0);
    case Resultado::NoCarrier:
      return linea("NO CARRIER", 3);
    case Resultado::Error:
      return linea("ERROR", 4);
    case Resultado::NoDialtone:
      return linea("NO DIALTONE", 6);
    case Resultado::Busy:
      return linea("BUSY", 7);
    case Resultado::NoAnswer:
      return linea("NO ANSWER", 8);
  }
}

// With X0 the speed is not reported.
void Modem::decirConnect() {
  constexpr int kConnect = 1, kConnect9600 = 12;
  if (extension_ == 0)
    linea("CONNECT", kConnect);
  else
    linea("CONNECT " + QByteArray::number(opciones_.velocidad), kConnect9600);
}

void Modem::linea(const QByteArray& palabra, int numero) {
  if (mudo_) return;
  emisor_.enviar(palabras_ ? "\r\n" + palabra + "\r\n" : QByteArray::number(numero) + "\r");
}

}  // namespace tarvo::simulador
