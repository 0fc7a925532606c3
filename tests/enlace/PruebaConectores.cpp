// CONECTORES.INI.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "comm/cables/Conectores.h"
#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Ficheros.h"

using namespace tarvo;
using namespace tarvo::enlace;

TEST(Conector, SeBuscaPorNombreSinMirarMayusculas) {
  const QString texto = QStringLiteral(
      "; tiendas\r\nCarne= tcp:10.0.0.1:3001\r\nPES(1)=local:/t/s\r\n"
      "vacío=\r\n=tcp:x:1\r\n");
  const std::pair<const char16_t*, const char16_t*> casos[] = {{u"CARNE", u"tcp:10.0.0.1:3001"},
                                                               {u" carne ", u"tcp:10.0.0.1:3001"},
                                                               {u"pes(1)", u"local:/t/s"},
                                                               {u"VACÍO", u""},
                                                               {u"otro", u""},
                                                               {u"", u""}};
  for (const auto& [nombre, destino] : casos)
    EXPECT_EQ(buscarConector(texto, QString::fromUtf16(nombre)), QStringView(destino));
}

TEST(Conector, ElFicheroSeLeeCadaVez) {
  const QTemporaryDir carpeta;
  const Ajustes a(carpeta.path(), Idioma::Espanol);
  EXPECT_EQ(conector(a, QStringLiteral("A")), QString());
  ASSERT_TRUE(
      ficheros::escribirEntero(carpeta.filePath(QStringLiteral("conectores.ini")), "A= tcp:h:1\n"));
  EXPECT_EQ(conector(a, QStringLiteral("a")), u"tcp:h:1");
}
