#include "simulador/Cable.h"

#include "simulador/Bascula.h"
#include "simulador/MaquinaNODAL.h"
#include "simulador/Registradora.h"

namespace tarvo::simulador {

bool Cable::abrir(Conexion conexion) {
  if (abierto_) return false;
  for (Maquina* maquina : maquinas_)
    if (maquina->rechazaConexion()) return false;
  abierto_ = true;
  const auto cortar = [this, alCortar = conexion.cortar](bool limpio) {
    cerrar();
    alCortar(limpio);
  };
  for (Maquina* maquina : maquinas_) maquina->conectar({conexion.salida, cortar});
  return true;
}

void Cable::cerrar() {
  abierto_ = false;
  for (Maquina* maquina : maquinas_) maquina->desconectar();
}

void Cable::recibir(const QByteArray& bytes) {
  if (!abierto_) return;
  for (Maquina* maquina : maquinas_) maquina->recibir(bytes);
}

Tubo::Tubo(Cable& cable, Reloj& reloj, int latenciaMs)
    : cable_(cable), latenciaMs_(latenciaMs), ida_(reloj), vuelta_(reloj) {}

Tubo::~Tubo() {
  cerrar();
}

bool Tubo::abrir(std::function<void(const QByteArray&)> alRecibir,
                 std::function<void(bool)> alCerrar) {
  const bool abierto =
      cable_.abrir({[this](const QByteArray& bytes) { vuelta_.enviar(bytes, latenciaMs_); },
                    [this](bool limpio) { vuelta_.cortar(limpio, latenciaMs_); }});
  if (!abierto) return false;
  ida_.conectar({[this](const QByteArray& bytes) { cable_.recibir(bytes); }, [](bool) {}});
  vuelta_.conectar({std::move(alRecibir), std::move(alCerrar)});
  return true;
}

void Tubo::enviar(const QByteArray& bytes) {
  ida_.enviar(bytes, latenciaMs_);
}

void Tubo::cerrar() {
  if (!vuelta_.conectado()) return;
  ida_.desconectar();
  vuelta_.desconectar();
  if (cable_.abierto()) cable_.cerrar();
}

std::unique_ptr<Maquina> crearMaquina(OpcionesMaquina opciones, Reloj& reloj) {
  switch (opciones.tipo) {
    case Tipo::Ebony:
      return std::make_unique<MaquinaNODAL>(std::move(opciones), reloj);
    case Tipo::Registradora:
      return std::make_unique<Registradora>(std::move(opciones), reloj);
    case Tipo::Balanzas:
    case Tipo::Birch:
      break;
  }
  return std::make_unique<Bascula>(std::move(opciones), reloj);
}

}  // namespace tarvo::simulador
