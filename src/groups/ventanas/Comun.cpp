#include "groups/ventanas/Comun.h"

#include <QRadioButton>

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;

QString tituloDe(QString texto, const QString& grupo, int balanza) {
  if (grupo.isEmpty()) texto = texto.remove(u"(#N)"_s).trimmed();
  return texto.replace(u"#B"_s, QString::number(balanza + 1)).replace(u"#N"_s, grupo);
}

Campo& enlazarRadios(QWidget& caja, const std::vector<std::pair<QRadioButton*, int>>& radios,
                     std::function<int()> ver, std::function<void(int)> poner) {
  const auto elegido = [radios] {
    const auto suyo = std::ranges::find_if(radios, [](auto& r) { return r.first->isChecked(); });
    return suyo == radios.end() ? -1 : suyo->second;
  };
  auto* campo = new CampoVivo(caja, nullptr,
                              {.estado = [elegido] { return QString::number(elegido()); },
                               .aControl =
                                   [radios, ver] {
                                     for (const auto& [boton, valor] : radios)
                                       boton->setChecked(valor == ver());
                                   },
                               .aMiembro = [poner, elegido] { poner(elegido()); }});
  for (const auto& [boton, valor] : radios)
    QObject::connect(boton, &QRadioButton::toggled, campo, [campo](bool si) {
      if (si) campo->haCambiado();
    });
  return *campo;
}

}  // namespace tarvo::groups
