// make_full_store.cpp: writes the full store as an averaged file, with its metadata file beside it.
//
//   make_full_store FILE.avg
#include <cstdio>
#include <string>

#include "files/avg_writer.h"
#include "files/mde_file.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "full_store.h"
#include "model/derived.h"

int main(int argc, char** argv) {
  using namespace quillan;
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_full_store FILE.avg\n");
    return 2;
  }
  bAutoErr = true;
  if (Log_Initialize(argv[1]) != 0) return 1;
  Make_Full_Store();
  Prepare_Output(true);
  if (AVG_Write(argv[1]) != 0) return 1;
  return MDE_Rewrite(std::string(File_Stem(argv[1])) + ".mde");
}
