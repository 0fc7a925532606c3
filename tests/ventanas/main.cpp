// Every test of windows runs without a display.
#include <gtest/gtest.h>

#include <QApplication>

namespace {

QtMessageHandler anterior;

// Messages about the limits of this platform are expected, and would hide real failures.
void sinRuido(QtMsgType tipo, const QMessageLogContext& donde, const QString& texto) {
  if (!texto.startsWith(u"This plugin does not support")) anterior(tipo, donde, texto);
}

}  // namespace

int main(int argc, char** argv) {
  // Or the same with a screen of its own.
  if (!qgetenv("QT_QPA_PLATFORM").startsWith("offscreen")) qputenv("QT_QPA_PLATFORM", "offscreen");
  anterior = qInstallMessageHandler(sinRuido);
  testing::InitGoogleTest(&argc, argv);
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
