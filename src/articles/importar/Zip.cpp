#include "articles/importar/Zip.h"

#include <zip.h>

namespace tarvo::importar {

namespace {

class Entrada final : public QIODevice {
 public:
  Entrada(zip_file_t* f, qint64& leidos) : f_(f), leidos_(leidos) { open(QIODevice::ReadOnly); }
  ~Entrada() override { zip_fclose(f_); }
  bool isSequential() const override { return true; }

 protected:
  qint64 readData(char* donde, qint64 cuantos) override {
    const qint64 n = zip_fread(f_, donde, static_cast<zip_uint64_t>(cuantos));
    leidos_ += std::max<qint64>(n, 0);
    return n > 0 && leidos_ <= kDesplegadoMayor ? n : -1;
  }
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  zip_file_t* f_;
  qint64& leidos_;
};

}  // namespace

std::unique_ptr<Zip> Zip::abrir(const QByteArray& bytes) {
  zip_source_t* fuente = zip_source_buffer_create(
      bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0, nullptr);
  if (!fuente) return nullptr;
  zip_t* z = zip_open_from_source(fuente, ZIP_RDONLY, nullptr);
  if (!z) {
    zip_source_free(fuente);
    return nullptr;
  }
  return std::unique_ptr<Zip>(new Zip(z));
}

Zip::~Zip() {
  zip_discard(z_);
}

std::unique_ptr<QIODevice> Zip::entrada(const QString& nombre) {
  zip_file_t* f = zip_fopen(z_, nombre.toUtf8().constData(), ZIP_FL_NOCASE);
  if (!f) return nullptr;
  return std::make_unique<Entrada>(f, leidos_);
}

}  // namespace tarvo::importar
