// A zip file in memory, its entries read as streams: their unpacked size is bounded.
#pragma once

#include <QIODevice>
#include <memory>

struct zip;

namespace tarvo::importar {

inline constexpr qint64 kDesplegadoMayor = 512LL * 1024 * 1024;

class Zip {
 public:
  // REQUIRES that the bytes outlive it. Nothing when they are not a zip file.
  static std::unique_ptr<Zip> abrir(const QByteArray& bytes);
  ~Zip();
  Zip(const Zip&) = delete;

  // Open for reading; null when there is no such entry. REQUIRES that this outlives it. Reading
  // fails beyond kDesplegadoMayor, for all entries together, and where the file is damaged.
  std::unique_ptr<QIODevice> entrada(const QString& nombre);

 private:
  explicit Zip(zip* z) : z_(z) {}
  zip* z_;
  qint64 leidos_ = 0;
};

}  // namespace tarvo::importar
