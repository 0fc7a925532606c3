// The look, in one place: two palettes (light and dark), one style sheet built from them, and the
// icons, which are drawn in the colours of the current palette.
#pragma once

#include <QColor>
#include <QIcon>
#include <QObject>
#include <QPointer>
#include <QString>
#include <array>
#include <optional>

class QApplication;
class QFocusFrame;

namespace tarvo::ventanas {

enum class Cara { Clara, Oscura };
// The three states that must be distinguishable; each has a shape and a word besides its colour.
enum class Estado { Ninguno, Bien, Duda, Mal };

enum class Tinte {
  Fondo,           // of windows
  Base,            // of grids and fields
  BaseAlterna,     // every second row
  Texto,           // on Fondo, Base and BaseAlterna
  TextoPalido,     // secondary texts and zeros
  Borde,           // of fields and buttons
  Linea,           // between rows and panes; carries no meaning
  Boton,           // face of a button
  Acento,          // the one accent: focus, the main button, links
  TextoAcento,     // on Acento
  Seleccion,       // selected rows
  TextoSeleccion,  // on Seleccion
  Bien,            // states: text and icon, on Fondo, Base and their own background
  Duda,
  Mal,
  FondoBien,  // states: the background of a strip
  FondoDuda,
  FondoMal,
  Cuantos
};

// The whole palette of a theme.
const std::array<QColor, static_cast<size_t>(Tinte::Cuantos)>& tintes(Cara cara);

// Contrast of two colours, from 1 to 21, as defined by the accessibility guidelines.
double contraste(const QColor& a, const QColor& b);

class Tema final : public QObject {
  Q_OBJECT
 public:
  // `fija`: always that theme, ignoring the desktop's. REQUIRES that the application outlives
  // it.
  explicit Tema(QApplication& app, std::optional<Cara> fija = {});
  ~Tema() override;

  Cara cara() const { return cara_; }
  void ponerCara(std::optional<Cara> fija);
  QColor color(Tinte tinte) const { return tintes(cara_)[static_cast<size_t>(tinte)]; }
  // 1 for the sizes of Medidas.h; 1.25 makes fonts and lengths a quarter larger.
  void ponerEscala(double escala);
  double escala() const { return escala_; }

 Q_SIGNALS:
  void cambiado();

 private:
  void aplicar();
  void ponerAnillo(QWidget* control);
  bool eventFilter(QObject* objeto, QEvent* evento) override;

  QApplication& app_;
  std::optional<Cara> fija_;
  Cara delEscritorio_;
  Cara cara_;
  double escala_ = 1;
  bool aplicando_ = false;
  QPointer<QFocusFrame> anillo_;
};

// The icon of a name (a file of datos/iconos without its extension), painted in the colours of the
// palette at the time. An unknown name gives an empty icon.
QIcon icono(const QString& nombre);
// The icon of a state; below, the current colour of its text.
QIcon iconoEstado(Estado estado);
QColor colorDe(Tinte tinte);  // in the application's current theme

}  // namespace tarvo::ventanas
