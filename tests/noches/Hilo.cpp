#include "noches/Hilo.h"

#include "noches/Base.h"

namespace tarvo::noches {

// Outcomes come by a timer, never from inside a call.
class Hilo final : public enlace::LinkSocket {
 public:
  Hilo(Hilos& casa, TipoAcceso device, QString linea)
      : casa_(casa),
        device_(device),
        linea_(std::move(linea)),
        timer_(casa.reloj_.temporizador([this] { vencer(); })) {}

  bool configurar(const enlace::ParametrosLinea& p) override {
    if (device_ == TipoAcceso::Directo) linea_ = QStringLiteral("COM%1").arg(p.puerto);
    if (device_ == TipoAcceso::TcpIp) linea_ = QStringLiteral("%1:%2").arg(p.host).arg(p.puertoTcp);
    return true;
  }
  void abrir(Oyente& oyente) override {
    oyente_ = &oyente;
    citar(Abriendo, casa_.azar_.entero(1, 60));
  }
  void cerrar() override {
    if (casa_.azar_.ocurre(casa_.averias.cierreMudo)) return;
    citar(estado_ == 5 ? Cerrando : Abandonando, 1);
  }
  void enviar(const QByteArray& bytes) override {
    if (disco().cortado) return;
    const QByteArray b = conRuido(bytes);
    if (casa_.alPasar) casa_.alPasar('>', b);
    if (tubo_) tubo_->enviar(b);
  }
  void vaciarRecepcion() override { buffer_.clear(); }
  int estado() const override { return estado_; }

 private:
  enum Cita { Nada, Abriendo, Cerrando, Abandonando, Caida, Reconexion };
  void citar(Cita cita, int ms) {
    cita_ = cita;
    timer_->unaVez(ms);
  }
  void vencer() {
    const Cita cita = std::exchange(cita_, Nada);
    if (cita == Abriendo) return oyente_->finApertura(conectar());
    if (cita == Abandonando) return oyente_->finApertura(enlace::kAbandonado);
    if (cita == Reconexion) return static_cast<void>(conectar());
    tubo_.reset();
    estado_ = 1;
    if (cita == Cerrando) oyente_->cierre(enlace::kBien);
    if (cita == Caida) oyente_->cierre(limpia_ ? enlace::kBien : enlace::kCaidaTcp);
  }
  int conectar() {
    const auto cable = casa_.cables.find(linea_);
    if (cable == casa_.cables.end()) return enlace::kSinHost;
    if (casa_.azar_.ocurre(casa_.averias.ocupada))
      return device_ == TipoAcceso::Directo ? enlace::kPuertoOcupado : enlace::kSinRespuesta;
    if (casa_.azar_.ocurre(casa_.averias.rechazo)) return enlace::kPuertoTcpCerrado;
    tubo_ = std::make_unique<simulador::Tubo>(cable->second, casa_.reloj_);
    if (!tubo_->abrir([this](const QByteArray& b) { recibir(b); },
                      [this](bool limpio) { caer(limpio); })) {
      tubo_.reset();
      return device_ == TipoAcceso::Directo ? enlace::kPuertoOcupado : enlace::kPuertoTcpCerrado;
    }
    estado_ = 5;
    return enlace::kBien;
  }
  // A cable doesn't detect its other end: the machine is back a second later.
  void caer(bool limpio) {
    if (cita_ == Cerrando) return;
    limpia_ = limpio;
    device_ == TipoAcceso::Directo ? citar(Reconexion, 1000) : citar(Caida, 1);
  }
  void recibir(const QByteArray& bytes) {
    if (disco().cortado) return;
    const QByteArray b = conRuido(bytes);
    if (casa_.alPasar) casa_.alPasar('<', b);
    buffer_ += b;
    oyente_->recepcion(buffer_);
  }
  // At most one bit in a few consecutive pieces: two bits of a frame can cancel out in its check,
  // which no receiver can detect.
  QByteArray conRuido(QByteArray bytes) {
    if (limpias_ > 0) --limpias_;
    if (!bytes.isEmpty() && casa_.azar_.ocurre(casa_.averias.bit)) {
      const int donde = casa_.azar_.entero(0, static_cast<int>(bytes.size()) - 1);
      const int bit = casa_.azar_.entero(0, 6);
      if (limpias_ > 0) return bytes;
      limpias_ = 4;
      bytes[donde] = static_cast<char>(bytes[donde] ^ (1 << bit));
    }
    return bytes;
  }

  Hilos& casa_;
  TipoAcceso device_;
  QString linea_;
  Oyente* oyente_ = nullptr;
  int estado_ = 1;
  bool limpia_ = false;
  Cita cita_ = Nada;
  QByteArray buffer_;
  int limpias_ = 0;  // pieces that pass unchanged after one with a flipped bit
  std::unique_ptr<simulador::Tubo> tubo_;
  std::unique_ptr<Temporizador> timer_;
};

std::unique_ptr<enlace::LinkSocket> Hilos::crear(TipoAcceso device) {
  return std::make_unique<Hilo>(*this, device, QString());
}

std::unique_ptr<enlace::LinkSocket> Hilos::crearConector(const QString& nombre, int& razon) {
  razon = cables.contains(nombre) ? 0 : enlace::kSinNombre;
  return razon == 0 ? std::make_unique<Hilo>(*this, TipoAcceso::Conector, nombre) : nullptr;
}

}  // namespace tarvo::noches
