// One seed from its first day to its last: a user who changes the catalogue, all kinds of sending,
// failing machines, power cuts. At any moment a group must hold what the program says it does; and
// after a day's last sending, without faults, every machine holds what it should, field by field.
#pragma once

#include "dias/Usuario.h"

namespace tarvo::dias {

struct Veredicto {
  QStringList diferencias;  // empty: all is well
  QByteArray huella;        // of the trace and of the database at the end
  int dias = 0, envios = 0, cambios = 0;
};

// `alTrazar` gets the events, line by line.
Veredicto correrSemilla(quint64 semilla, std::function<void(const QString&)> alTrazar = {});

class Mundo final : private motor::Vigilante {
 public:
  Mundo(quint64 semilla, std::function<void(const QString&)> alTrazar);
  Veredicto correr();

 private:
  // A sending, and what goes wrong during it.
  struct Envio {
    int clase = 1;
    bool todo = false;
    qint64 desde = 0, hasta = 9999999;
    bool calma = false;
    qint64 corteEvento = -1, corteConfirmacion = -1;
  };

  void InformeProblema(TipoTarea clase, int grupo, int error, int estado, qint64 codigo) override;
  void InformeRetry(TipoTarea, int, int, int, qint64) override {}
  void InformeAviso(const totals::Aviso& aviso) override;
  Resultado<> TareaHecha(const motor::DatosTarea&) override { return {}; }

  void dia(int n);
  void finDelDia();
  void suceso();
  void enviar(const std::vector<const Grupo*>& grupos, Envio envio);
  // False after a power cut. Sets `alaVez_`.
  bool correrCola(const Envio& envio);
  void arrancar();
  void percances(bool calma);
  void memoriaVieja();
  void comprobarAfirmado();
  void comprobarTodo(const Grupo& grupo);
  void comprobarCompleto(const Grupo& grupo);
  void comparar(const Grupo& grupo, const Esperado& debe, qint64 codigo, const QString& cuando);
  const simulador::Articulo* enMaquina(const MaquinaViva& m, const Esperado& debe,
                                       qint64 codigo) const;
  void traza(const QString& linea);
  void fallar(const QString& texto) { v_.diferencias += texto; }

  std::function<void(const QString&)> alTrazar_;
  Tienda t_;
  Usuario usuario_;
  std::unique_ptr<Programa> programa_;
  std::set<int> viejas_;  // groups with a machine back on an old memory
  std::map<int, std::set<qint64>>
      sobran_;                         // by group of a kind that can't delete: possible leftovers
  std::map<int, QStringList> avisos_;  // of the current sending, by group
  std::set<int> problemas_;            // groups with an abandoned task
  bool alaVez_ = false;                // the user worked during the current sending
  Veredicto v_;
  QByteArray huella_;
};

}  // namespace tarvo::dias
