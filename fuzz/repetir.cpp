// Runs a fuzz target over the files of the folders given, in place of the fuzzing engine.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano);

int main(int argc, char** argv) {
  int casos = 0;
  for (int i = 1; i < argc; ++i) {
    for (const auto& entrada : std::filesystem::recursive_directory_iterator(argv[i])) {
      if (!entrada.is_regular_file()) continue;
      std::ifstream f(entrada.path(), std::ios::binary);
      const std::vector<char> bytes((std::istreambuf_iterator<char>(f)), {});
      LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
      ++casos;
    }
  }
  std::printf("%d casos\n", casos);
  return casos > 0 ? 0 : 1;
}
