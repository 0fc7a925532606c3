// Explores accesses one after the other: opens each, lets a Sondeo talk on it, and closes it.
#pragma once

#include "comm/exploracion/Sondeo.h"

namespace tarvo::exploracion {

class Exploracion final : private enlace::LinkSocket::Oyente {
 public:
  // REQUIRE that the references outlive it. `nodoPropio` is the setting WhoAmI.
  Exploracion(Reloj& reloj, Azar& azar, enlace::FabricaEnlaces& fabrica, int nodoPropio);
  ~Exploracion();

  // Both from the event loop, and both may be empty. A handler may destroy nothing of this.
  std::function<void(const Hallazgo&)> alHallar;  // an access is done
  std::function<void()> alAcabar;                 // all are, or it was stopped

  // REQUIRES that none is running.
  void empezar(std::vector<Acceso> accesos);
  // The open line is closed first; the access under way gives no result.
  void parar();

  const std::vector<Hallazgo>& hallazgos() const { return hallazgos_; }
  // The access under way, and its dialogue; null when there is none, and while a line opens.
  const Acceso* enCurso() const;
  const Sondeo* sondeo() const { return sondeo_.get(); }

 private:
  void finApertura(int razon) override;
  void cierre(int razon) override;
  void linea(int) override {}
  void recepcion(QByteArray& buffer) override;
  void siguiente();
  void vencer();
  void cerrar();
  void hallado(Hallazgo h);
  void continuar();

  Reloj& reloj_;
  Azar& azar_;
  enlace::FabricaEnlaces& fabrica_;
  const int nodoPropio_;
  std::vector<Acceso> accesos_;
  std::vector<Hallazgo> hallazgos_;
  size_t indice_ = 0;
  enum class Estado { Reposo, Siguiente, Abriendo, Hablando, Cerrando } estado_ = Estado::Reposo;
  bool parada_ = false;
  std::unique_ptr<enlace::LinkSocket> cable_;
  std::unique_ptr<Sondeo> sondeo_;
  std::unique_ptr<Temporizador> plazo_;
};

}  // namespace tarvo::exploracion
