// Makes the page of performance and its figures as JSON out of what the benchmarks have saved; the
// work of bench/run.
//
//   page TEMPLATE PAGE JSON RUN...

#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/Summary.h"

namespace {

constexpr int kFirstRun = 4;

std::string contentOf(const std::string& file) {
  std::ifstream in(file);
  std::ostringstream text;
  if (!in || !(text << in.rdbuf())) throw std::runtime_error("can't read " + file);
  return text.str();
}

void write(const std::string& file, const std::string& text) {
  if (!(std::ofstream(file) << text << std::flush)) throw std::runtime_error("can't write " + file);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    if (argc <= kFirstRun) throw std::runtime_error("usage: page TEMPLATE PAGE JSON RUN...");
    std::vector<std::string> runs;
    for (int i = kFirstRun; i < argc; ++i) runs.push_back(contentOf(argv[i]));
    const bench::Performance performance = bench::performanceOf(runs);
    const std::string page = bench::fillIn(contentOf(argv[1]), performance);
    write(argv[2], page);
    write(argv[3], bench::asJson(performance));
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "page: " << error.what() << '\n';
    return 1;
  }
}
