// The kinds of fields: how each value is shown, which texts it accepts, and its limits in words.
#include <cstdlib>

#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/edicion/Ficha.h"
#include "core/ventanas/edicion/Tecleado.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

bool soloCifras(const QString& s) {
  return !s.isEmpty() && std::ranges::all_of(s, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

std::optional<qint64> entero(QString s) {
  s = s.trimmed();
  if (!soloCifras(s.startsWith(u'-') ? s.mid(1) : s)) return std::nullopt;
  bool cabe = false;
  const qint64 n = s.toLongLong(&cabe);
  return cabe ? std::optional(n) : std::nullopt;
}

QString deHora(Fecha f) {
  const QTime h = f.qtime();
  return h.toString(h.second() == 0 ? u"HH:mm"_s : u"HH:mm:ss"_s);
}

}  // namespace

Modo Modo::con(const QString& falta) && {
  poner = [leer = std::move(poner), falta](const QString& s) -> Resultado<> {
    if (!leer(s)) return fallo(Fallo::Formato, falta);
    return {};
  };
  return std::move(*this);
}

Modo Modo::vacioComo(const QString& texto) && {
  poner = [leer = std::move(poner), texto](const QString& s) {
    return leer(s.trimmed().isEmpty() ? texto : s);
  };
  return std::move(*this);
}

Modo Ficha::cifras(QString& donde, int mayor) const {
  return {.ver = [&donde] { return donde; },
          .poner = [this, &donde, mayor](const QString& s) -> Resultado<> {
            const QString t = s.trimmed();
            if (t.size() > mayor || !(t.isEmpty() || soloCifras(t)))
              return fallo(Fallo::Formato, this->t(kTxHastaCifras).arg(mayor));
            donde = t;
            return {};
          },
          .limites = t(kTxHastaCifras).arg(mayor),
          .letras = mayor};
}

Modo Ficha::texto(QString& donde, int largo, bool obligatorio) const {
  return {.ver = [&donde] { return donde; },
          .poner = [this, &donde, largo, obligatorio](const QString& s) -> Resultado<> {
            if (obligatorio && s.trimmed().isEmpty()) return fallo(Fallo::Formato, t(kTxNoVacio));
            if (largo > 0 && s.size() > largo)
              return fallo(Fallo::Formato, t(kTxSobranLetras).arg(largo).arg(s.size()));
            donde = s;
            return {};
          },
          .limites = largo > 0 ? t(kTxHastaLetras).arg(largo) : QString()};
}

Modo Ficha::numeroDe(std::function<qint64()> ver, std::function<void(qint64)> poner, qint64 menor,
                     qint64 mayor) const {
  return {.ver = [ver = std::move(ver)] { return QString::number(ver()); },
          .poner = [this, poner = std::move(poner), menor, mayor](const QString& s) -> Resultado<> {
            const auto n = entero(s);
            if (!n || *n < menor || *n > mayor)
              return fallo(Fallo::Formato, t(kTxNumeroDe).arg(menor).arg(mayor));
            poner(*n);
            return {};
          },
          .limites = t(kTxDeA).arg(menor).arg(mayor),
          .letras = static_cast<int>(QString::number(mayor).size())};
}

Modo Ficha::codigoDe(std::function<qint64()> ver, std::function<void(qint64)> poner, int cifras,
                     qint64 menor, qint64 mayor) const {
  Modo modo = numeroDe(ver, poner, menor, mayor);
  modo.ver = [ver = std::move(ver), cifras] {
    return ver() == 0 ? QString() : Ceros(ver(), cifras);
  };
  modo.poner = [leer = std::move(modo.poner), menor](const QString& s) {
    return leer(s.trimmed().isEmpty() && menor <= 0 ? u"0"_s : s);
  };
  modo.letras = cifras;
  return modo;
}

Modo Ficha::centesimas(int& donde, int menor, int mayor) const {
  const auto ver = [](int n) { return QString::number(n / 100.0, 'f', 2).replace(u'.', u','); };
  return {.ver = [&donde, ver] { return ver(donde); },
          .poner = [this, &donde, ver, menor, mayor](const QString& s) -> Resultado<> {
            const auto n = LeerCentesimas(s);
            if (!n || *n < menor || *n > mayor)
              return fallo(Fallo::Formato, t(kTxDecimalDe).arg(ver(menor), ver(mayor)));
            donde = *n;
            return {};
          },
          .limites = t(kTxDeA).arg(ver(menor), ver(mayor)),
          .letras = 8};
}

Modo Ficha::dinero(qint64& donde, std::function<int()> moneda, qint64 mayor) const {
  const Ajustes& a = contexto().ajustes;
  return {.ver = [&donde, &a, moneda] { return VerImporte(a, donde, moneda()); },
          .poner = [this, &donde, &a, moneda, mayor](const QString& s) -> Resultado<> {
            const auto n = LeerImporte(a, s, moneda());
            if (!n || *n < 0) return fallo(Fallo::Formato, t(kTxEscribaImporte));
            TARVO_INTENTAR(importeClaro(contexto(), s, moneda()));
            if (*n > mayor)
              return fallo(Fallo::Formato, t(kTxImporteMayor).arg(VerImporte(a, mayor, moneda())));
            donde = *n;
            return {};
          },
          .letras = 12};
}

Modo Ficha::cantidad(qint64& donde, std::function<int()> cada) const {
  return {
      .ver = [this, &donde, cada] { return VerCantidad(contexto().ajustes.idioma, donde, cada()); },
      .poner = [this, &donde, cada](const QString& s) -> Resultado<> {
        const auto n = LeerCantidad(contexto().ajustes.idioma, s, cada());
        if (!n || std::abs(*n) > kImporteMayor) return fallo(Fallo::Formato, t(kTxEscribaCantidad));
        TARVO_INTENTAR(cantidadClara(contexto(), s, cada()));
        donde = *n;
        return {};
      },
      .letras = 12};
}

Modo Ficha::fecha(std::optional<Fecha>& donde, bool obligatoria) const {
  return {.ver = [&donde] { return donde ? donde->corta() : QString(); },
          .poner = [this, &donde, obligatoria](const QString& s) -> Resultado<> {
            const auto f = Fecha::leer(s.trimmed());
            if (!f && (obligatoria || !s.trimmed().isEmpty()))
              return fallo(Fallo::Formato, t(kTxEscribaDia));
            donde = f ? std::optional(f->dia()) : std::nullopt;
            return {};
          },
          .limites = t(kTxUnDia),
          .letras = 12,
          .deFecha = true};
}

Modo Ficha::hora(Fecha& donde) const {
  return {.ver = [&donde] { return deHora(donde); },
          .poner = [this, &donde](const QString& s) -> Resultado<> {
            const auto h = Fecha::leerHora(s.trimmed());
            if (!h) return fallo(Fallo::Formato, t(kTxEscribaHora));
            donde = *h;
            return {};
          },
          .limites = t(kTxUnaHora),
          .letras = 8};
}

}  // namespace tarvo::ventanas
