// The settings of communications: copies that are committed once, or not at all.

#include "MesaDeComm.h"

namespace tarvo::prueba {

struct Configuracion : MesaDeComm {
  QString enFichero(const QString& clave) {
    Ajustes leidos(carpeta_.path(), Idioma::Espanol,
                   {enlace::ajustesCables(), enlace::ajustesEnlace(), motor::ajustesMotor()});
    bien(leidos.LeerConfig());
    for (const QString& l : leidos.escribir().split(u"\r\n"_s))
      if (l.startsWith(clave + u'=')) return l.section(u'=', 1).trimmed();
    return {};
  }
  template <class W>
  W* en(const QString& nombre) {
    return control<W>(nombre, u"CfgComm"_s);
  }
  void escribir(QLineEdit* campo, const QString& texto) {
    campo->setFocus();
    campo->selectAll();
    QTest::keyClicks(campo, texto);
  }
  void pulsar(const QString& boton) { QTest::keyClick(en<QPushButton>(boton), Qt::Key_Space); }
};

TEST_F(Configuracion, LineaDeUnCanal) {
  cables().canales[1].Device = TipoAcceso::Ninguno;
  abrir(u"CfgComm"_s);
  auto* rs232 = en<QPushButton>(u"RS232_2"_s);
  auto* imagen = en<QToolButton>(u"imagen2"_s);
  EXPECT_FALSE(rs232->isEnabled());
  QTest::mouseDClick(imagen, Qt::LeftButton);  // a modem
  EXPECT_TRUE(en<QPushButton>(u"Modem_2"_s)->isEnabled());
  QTest::keyClick(imagen, Qt::Key_Space);  // a direct cable
  EXPECT_EQ(en<QComboBox>(u"Device2"_s)->currentIndex(), 2);
  EXPECT_FALSE(en<QPushButton>(u"Modem_2"_s)->isEnabled());
  luego([&](QWidget* d) {
    auto* puerto = d->findChild<QLineEdit*>(u"Puerto"_s);
    escribir(puerto, u"17"_s);
    EXPECT_EQ(
        caja([&] { QTest::keyClick(d->findChild<QPushButton*>(u"Acepto"_s), Qt::Key_Space); }),
        u"Hay valores que corregir:\nPuerto (1 a 16): Escriba un número entero de 1 a 16.");
    EXPECT_TRUE(d->isVisible());  // no such port: nothing changes except the fault beside it
    EXPECT_FALSE(d->findChild<QLabel*>(u"faltaPuerto"_s)->text().isEmpty());
    escribir(puerto, u"16"_s);
    d->findChild<QComboBox*>(u"Baudios"_s)->setCurrentText(u"19200"_s);
    QTest::keyClick(d->findChild<QComboBox*>(u"Paridad"_s), Qt::Key_Up);
    QTest::keyClick(d->findChild<QCheckBox*>(u"DSR"_s), Qt::Key_Space);
    QTest::keyClick(d->findChild<QPushButton*>(u"Acepto"_s), Qt::Key_Space);
  });
  pulsar(u"RS232_2"_s);
  EXPECT_EQ(en<QLabel>(u"linea2"_s)->text(), u"19200,E,7,1");
  EXPECT_EQ(cables().canales[1].RS232, u"9600,O,7,1");  // not before everything is accepted
  EXPECT_EQ(gestor->canales()[1].EstadoCanal, 3);
  escribir(en<QLineEdit>(u"TimeOut"_s), u"12000"_s);
  pulsar(u"Acepto"_s);
  EXPECT_EQ(tiempos().TimeOut, 12000);
  EXPECT_EQ(cables().canales[1].Puerto, 16);
  EXPECT_EQ(cables().canales[1].ControlLinea, 3);
  EXPECT_EQ(enFichero(u"RS232(2)"_s), u"19200,E,7,1");
  EXPECT_EQ(enFichero(u"Device(2)"_s), u"2");
}

// A speed set by hand in the file, and missing from the list, is shown and kept.
TEST_F(Configuracion, UnaVelocidadFueraDeLaListaSeConserva) {
  cables().canales[1].RS232 = u"38400,N,8,1"_s;
  abrir(u"CfgComm"_s);
  luego([&](QWidget* d) {
    EXPECT_EQ(d->findChild<QComboBox*>(u"Baudios"_s)->currentText(), u"38400");
    QTest::keyClick(d->findChild<QPushButton*>(u"Acepto"_s), Qt::Key_Space);
  });
  pulsar(u"RS232_2"_s);
  EXPECT_EQ(en<QLabel>(u"linea2"_s)->text(), u"38400,N,8,1");
}

TEST_F(Configuracion, ValoresDeFabrica) {
  tiempos().TimeOut = 1;
  delMotor().IntentosManual = 99;
  abrir(u"CfgComm"_s);
  pulsar(u"DeFabrica"_s);
  EXPECT_EQ(en<QLineEdit>(u"TimeOut"_s)->text(), u"10000");
  EXPECT_EQ(tiempos().TimeOut, 1);  // not before it is accepted
  pulsar(u"Acepto"_s);
  EXPECT_EQ(tiempos().TimeOut, 10000);
  EXPECT_EQ(delMotor().IntentosManual, 0);
}

// The file was edited while the program is open: that is reported, and what isn't changed here
// stays there.
TEST_F(Configuracion, LoCambiadoDesdeFueraSeDice) {
  bien(ajustes->GuardarConfig());
  abrir(u"CfgComm"_s);
  EXPECT_TRUE(escritorio.ventanas().cargada(u"CfgComm"_s)->tira().isHidden());
  pulsar(u"Cancelo"_s);
  QCoreApplication::processEvents();
  QFile f(ajustes->rutaConfig());
  ASSERT_TRUE(f.open(QIODevice::ReadWrite));
  const QByteArray texto = f.readAll().replace("TimeACK= 2000", "TimeACK= 3000");
  f.resize(0);
  f.write(texto);
  f.close();
  abrir(u"CfgComm"_s);
  EXPECT_TRUE(escritorio.ventanas()
                  .cargada(u"CfgComm"_s)
                  ->tira()
                  .texto()
                  .contains(u"desde fuera (TimeACK)"));
  escribir(en<QLineEdit>(u"TimeOut"_s), u"12000"_s);
  pulsar(u"Acepto"_s);
  EXPECT_EQ(enFichero(u"TimeACK"_s) + u' ' + enFichero(u"TimeOut"_s), u"3000 12000");
}

// A channel put into use works at once; one taken out of use stops.
TEST_F(Configuracion, ElMotorSigueElUso) {
  abrir(u"CfgComm"_s);
  en<QComboBox>(u"Device3"_s)->setCurrentIndex(0);
  pulsar(u"Acepto"_s);
  EXPECT_EQ(gestor->canales()[2].EstadoCanal, 0);
  QCoreApplication::processEvents();
  abrir(u"CfgComm"_s);
  en<QComboBox>(u"Device3"_s)->setCurrentIndex(2);
  pulsar(u"Acepto"_s);
  EXPECT_EQ(gestor->canales()[2].EstadoCanal, 3);
}

TEST_F(Configuracion, LoMaloNoSeGuarda) {
  for (const char16_t* malo : {u"", u"diez", u"1,5", u"-3", u"0", u"950400000"}) {
    abrir(u"CfgComm"_s);
    escribir(en<QLineEdit>(u"TimeACK"_s), u"x"_s);
    en<QLineEdit>(u"TimeACK"_s)->setText(QString::fromUtf16(malo));
    en<QComboBox>(u"Device1"_s)->setCurrentIndex(3);
    const QString dicho = caja([&] { pulsar(u"Acepto"_s); });
    EXPECT_EQ(dicho, u"Valores de configuración incorrectos");
    EXPECT_FALSE(en<QLabel>(u"faltaTimeACK"_s)->text().isEmpty());
    EXPECT_EQ(tiempos().TimeACK, 2000);
    EXPECT_EQ(caja([&] { pulsar(u"Cancelo"_s); }), u"¿Abandonar los cambios realizados?");
    QCoreApplication::processEvents();
    EXPECT_EQ(cables().canales[0].Device, TipoAcceso::Directo);
    EXPECT_FALSE(QFile::exists(ajustes->rutaConfig()));
  }
}

TEST_F(Configuracion, OrdenesDelModem) {
  cables().canales[0].Device = TipoAcceso::Modem;
  abrir(u"CfgComm"_s);
  luego([&](QWidget* d) {
    const auto pulsa = [d](const QString& boton) {
      QTest::mouseClick(d->findChild<QAbstractButton*>(boton), Qt::LeftButton);
    };
    auto* nueva = d->findChild<QLineEdit*>(u"Nueva"_s);
    auto* lista = d->findChild<QListWidget*>(u"IniMdmX"_s);
    for (const char16_t* orden : {u"s0=1", u"ats7=60", u"x1", u"x2", u"x3"}) {
      escribir(nueva, QString::fromUtf16(orden));
      pulsa(u"Pon"_s);
    }
    EXPECT_EQ(lista->count(), 8);
    EXPECT_FALSE(d->findChild<QPushButton*>(u"Pon"_s)->isEnabled());
    lista->setCurrentRow(3);
    pulsa(u"Sube"_s);
    lista->setCurrentRow(7);
    pulsa(u"Quita"_s);
    escribir(d->findChild<QLineEdit*>(u"IniMdm0"_s), u"&f"_s);
    pulsa(u"Acepto"_s);
  });
  pulsar(u"Modem_1"_s);
  pulsar(u"Acepto"_s);
  const enlace::ParamCanal& p = cables().canales[0];
  EXPECT_EQ(p.IniMdm0, u"AT&F");
  EXPECT_EQ(p.IniMdmX.join(u' '), u"AT&C1 AT&D2 ATS0=1 AT&A0 ATS7=60 ATX1 ATX2");
}

}  // namespace tarvo::prueba
