#include "app/Portero.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>

#include "app/Carpeta.h"

namespace tarvo::app {

using namespace Qt::StringLiterals;

RutaPuerta::RutaPuerta(const QString& base) {
  const QFileInfo real(ficheroReal(base));
  carpeta_ = ::open(QFile::encodeName(real.path()).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
  ruta_ = u"/proc/self/fd/%1/%2.SCK"_s.arg(QString::number(carpeta_), real.completeBaseName());
}

RutaPuerta::~RutaPuerta() {
  if (carpeta_ >= 0) ::close(carpeta_);
}

// --- a visit ------------------------------------------------------------------------------------

Visita::~Visita() {
  cortar();
}

void Visita::decir(const Respuesta& respuesta) {
  if (!enchufe_ || enchufe_->state() != QLocalSocket::ConnectedState) return;
  enchufe_->write(escribir(respuesta));
  enchufe_->flush();
}

void Visita::acabar(int estado) {
  decir({Respuesta::Que::Fin, {}, estado});
  cortar();
}

void Visita::cortar() {
  alParar = nullptr;
  if (QLocalSocket* e = enchufe_.data()) {
    enchufe_.clear();
    e->disconnect();
    QObject::connect(e, &QLocalSocket::disconnected, e, &QObject::deleteLater);
    e->disconnectFromServer();
    if (e->state() == QLocalSocket::UnconnectedState) e->deleteLater();
  }
}

// --- the door -----------------------------------------------------------------------------------

Resultado<> Portero::abrir(const QString& base, Atender atender) {
  atender_ = std::move(atender);
  ruta_ = std::make_unique<RutaPuerta>(base);
  // No other program has the database, so an existing socket was left by one that died.
  QLocalServer::removeServer(**ruta_);
  if (!servidor_.listen(**ruta_)) return fallo(Fallo::Interno, servidor_.errorString());
  struct stat suyo{};
  if (::stat(QFile::encodeName(base).constData(), &suyo) == 0)
    ::chmod(QFile::encodeName(**ruta_).constData(), suyo.st_mode & 0666);
  QObject::connect(&servidor_, &QLocalServer::newConnection, [this] { recibir(); });
  return {};
}

void Portero::recibir() {
  while (QLocalSocket* e = servidor_.nextPendingConnection()) {
    const auto visita = std::make_shared<Visita>(e);
    // It lives with its socket until the request is complete, then with its handler.
    QObject::connect(e, &QLocalSocket::readyRead, e, [this, visita] { leer(visita); });
    QObject::connect(e, &QLocalSocket::disconnected, e, [v = visita.get()] {
      if (!v->pedida_) v->cortar();
    });
  }
}

void Portero::leer(const std::shared_ptr<Visita>& visita) {
  Visita& v = *visita;
  if (!v.enchufe_) return;
  v.recibido_ += v.enchufe_->read(kMayorRecado + 1);
  for (qsizetype fin = 0; v.enchufe_ && (fin = v.recibido_.indexOf('\n')) >= 0;) {
    const QByteArray linea = v.recibido_.left(fin);
    v.recibido_.remove(0, fin + 1);
    if (v.pedida_) {
      if (esParar(linea) && v.alParar) v.alParar();
      continue;
    }
    const auto peticion = leerPeticion(linea);
    if (!peticion) return v.cortar();
    v.pedida_ = true;
    atender_(*peticion, visita);
  }
  if (v.recibido_.size() > kMayorRecado) v.cortar();
}

}  // namespace tarvo::app
