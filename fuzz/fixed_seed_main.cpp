// fixed_seed_main.cpp: drives a fuzz target without a fuzzer: every file of a corpus as it is, then mutations of them
// from a fixed seed, so that each run does the same.
//
//   TARGET CORPUS_FOLDER EXECUTIONS
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData);

namespace {

/// Pieces on which readers have been seen to stumble.
constexpr std::string_view sPiece[] = {
    "\n", "\r\n",  "\"",      ",",   ",,",  ";", ":", "$", "=", "*",
    "\\", "1E400", "-1E-400", "nan", "inf", "0", "-", "+", ".", "9999999999999999999",
    "\t", " "};

std::vector<std::string> Read_Corpus(const char* sFolder) {
  std::vector<std::filesystem::path> sPath;
  if (std::filesystem::is_directory(sFolder)) {
    for (const auto& hEntry : std::filesystem::directory_iterator(sFolder)) sPath.push_back(hEntry.path());
  }
  std::sort(sPath.begin(), sPath.end());
  std::vector<std::string> sSeed{""};
  for (const auto& s : sPath) {
    std::ifstream in(s, std::ios::binary);
    sSeed.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return sSeed;
}

void Mutate(std::string& s, std::mt19937& hRandom, const std::vector<std::string>& sSeed) {
  const auto Below = [&](std::size_t N) { return static_cast<std::size_t>(hRandom()) % (N == 0 ? 1 : N); };
  const std::size_t K = Below(s.size() + 1);
  switch (hRandom() % 5) {
    case 0: s.insert(K, sPiece[Below(std::size(sPiece))]); break;
    case 1: s.erase(K, Below(40)); break;
    case 2:
      if (K < s.size()) s[K] = static_cast<char>(hRandom());
      break;
    case 3: s.insert(K, s.substr(Below(s.size() + 1), Below(200))); break;
    default: {
      const std::string& sOther = sSeed[Below(sSeed.size())];
      s = s.substr(0, K) + sOther.substr(Below(sOther.size() + 1));
      break;
    }
  }
  if (s.size() > 100000) s.resize(100000);
}

void Run(const std::string& s) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(s.data()), s.size());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const std::vector<std::string> sSeed = Read_Corpus(argv[1]);
  for (const std::string& s : sSeed) Run(s);
  std::mt19937 hRandom(20201112);
  const int NRun = std::atoi(argv[2]);
  for (int I = 0; I < NRun; ++I) {
    std::string s = sSeed[hRandom() % sSeed.size()];
    for (unsigned K = 0; K < 1 + hRandom() % 8; ++K) Mutate(s, hRandom, sSeed);
    Run(s);
  }
  std::printf("%d executions\n", NRun + static_cast<int>(sSeed.size()));
  return 0;
}
