// The editor of a group: its machines in ten places, how it is reached, its section and tariff, and
// the sheets of the group and of each machine. Works on a copy that "Guardar" stores at once; then
// what has changed is sent, as the settings say. EdiGrupo and EdiCajas are one design, for scales
// and for cash registers.
#pragma once

#include <QPointer>
#include <set>

#include "comm/motor/gestcomm.h"
#include "core/ventanas/edicion/Deshacer.h"
#include "core/ventanas/edicion/Ficha.h"
#include "core/ventanas/edicion/Ordenes.h"
#include "groups/Grupos.h"
#include "groups/ventanas/DibujoEnlace.h"
#include "groups/ventanas/Listas.h"
#include "groups/ventanas/Puertas.h"

namespace tarvo::groups {

class EditorGrupo : public ventanas::FichaDe<GrupoEditado> {
  Q_OBJECT
 public:
  Resultado<> entrar(const PuertaGrupo& puerta);

 protected:
  EditorGrupo(ventanas::Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo,
              motor::gestcomm& motor, bool cajas);

 private:
  using Vuelto = ventanas::Deshacer::Vuelto;

  // --- the form (EditorGrupoMontaje.cpp)
  void montar();
  void montarOrdenes(QToolBar& delGrupo);
  void montarOrdenesMaquina(QToolBar& deMaquina);
  void montarPaleta(ventanas::Formulario f);
  void montarSitios(ventanas::Formulario f);
  void montarCajones(ventanas::Formulario f);
  void montarIdentidad(ventanas::Formulario f);
  void montarAcceso(ventanas::Formulario f);
  void montarBus(ventanas::Formulario& g);
  void montarEstado(ventanas::Formulario f);
  void vigilar(ventanas::Campo& campo, std::optional<Grupos::FaltaDe> de = {});

  // --- what is shown (EditorGrupo.cpp)
  void pintar();
  void pintarSitios();
  void pintarAcceso();
  void pintarEstado();
  bool esOtra(int sitio, const devices::Miembro& maquina) const;
  void leerEstado();
  void permitir();
  QString decirSitio(int sitio) const;
  void mostrarFila(QWidget& control, bool si);
  int sitio() const { return sitios_->currentRow(); }
  const devices::Miembro* actual() const { return enSitio(r.grupo, sitio()); }

  // Notes the way back from what has been changed since the last note.
  void anotar(const QString& que);
  void volverA(const GrupoEditado& otro);
  void anotarLoTecleado();  // in the field that still has the focus
  // Before each command: what the one before reported is no longer the last thing to know.
  void empezarOrden();
  void quitarLoDicho();
  void haCambiado(ventanas::Campo& campo);
  void revisar();
  Resultado<> ponerDireccion(const QString& texto);
  void mostrarDireccion();
  void pintarFaltaSitios(const std::vector<Grupos::Falta>& faltas);

  // --- gestures on places (EditorGrupoGestos.cpp)
  void soltar(const Arrastre& que, int en, bool mueve);
  void poner(int sitio, devices::Miembro maquina);
  void ponerModelo(int sitio, int modelo);
  std::optional<int> sitioParaOtra();
  bool sustituye(int sitio);
  void insertar();
  void copiar();
  void cortar();
  void pegar(int en);
  void borrar(int de);
  void empujar(int de, int a);
  void menuDeMaquina(const QPoint& donde);

  // --- sheets (EditorGrupoHojas.cpp)
  template <class P>
  void hojaDeGrupo(int que, P hoja = {});
  template <class P>
  void hojaDeMaquina(int que, Parte parte, std::initializer_list<Cambio> cambios);
  void operadores();
  void cabecera();
  void teclado();
  void probar();
  QString deMaquina(int que) const;  // of the current place, for the undo

  // --- storing and sending (EditorGrupoGuardar.cpp)
  std::vector<FaltaCampo> comprobar() override;
  void decir(const std::vector<FaltaCampo>& faltas) override;
  bool conforme() override;
  Resultado<> aplicar() override;
  void aplicada() override;
  std::vector<TareaDebida> debidos() const;
  void enviar(ventanas::Ventana* quien);
  void montarMenuEnvio(QMenu& menu);

  Grupos grupos_;
  motor::gestcomm& motor_;
  const bool cajas_;
  ventanas::Deshacer* deshacer_ = nullptr;
  ventanas::Ordenes *ordenes_ = nullptr, *ordenesMaquina_ = nullptr;
  GrupoEditado abierto_;  // as it was stored then
  GrupoEditado previo_;   // as of the last note
  bool abierta_ = false, nuevo_ = false, enviar_ = false;
  std::function<void(int, bool)> alGuardar_;

  ListaDibujos *ico_ = nullptr, *sitios_ = nullptr;
  DibujoEnlace* enlace_ = nullptr;
  Caja *clipbrd_ = nullptr, *basura_ = nullptr;
  QLabel *faltaSitios_ = nullptr, *rotuloAddr_ = nullptr;
  QComboBox *acceso_ = nullptr, *baudios_ = nullptr, *com_ = nullptr;
  QCheckBox* rs485_ = nullptr;
  std::vector<configuracion::Estado> estados_;
  QGridLayout* estado_ = nullptr;
  QWidget* cajaEstado_ = nullptr;
  QLabel* notaEstado_ = nullptr;
  ventanas::Campo *cod_ = nullptr, *nom_ = nullptr, *telf_ = nullptr, *addr_ = nullptr,
                  *dir_ = nullptr, *seccion_ = nullptr;
  std::vector<std::pair<ventanas::Campo*, std::optional<Grupos::FaltaDe>>> vigilados_;
  std::set<ventanas::Campo*> tocados_;
  int sitioDireccion_ = -1;      // whose address is shown
  std::optional<int> cajaMala_;  // the first register with a wrong address
  QStringList dichas_;           // the engine's faults, in its order
};

class EdiGrupo final : public EditorGrupo {
  Q_OBJECT
 public:
  EdiGrupo(ventanas::Contexto& c, const QString& nombre, articles::Catalogo& catalogo,
           motor::gestcomm& motor)
      : EditorGrupo(c, nombre, catalogo, motor, false) {}
};

class EdiCajas final : public EditorGrupo {
  Q_OBJECT
 public:
  EdiCajas(ventanas::Contexto& c, const QString& nombre, articles::Catalogo& catalogo,
           motor::gestcomm& motor)
      : EditorGrupo(c, nombre, catalogo, motor, true) {}
};

}  // namespace tarvo::groups
