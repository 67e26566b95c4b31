/// soak_report: makes page, figures and picture of what soak/run has noted.

#include <exception>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "soak/Findings.h"
#include "soak/MemoryPicture.h"
#include "soak/Page.h"

namespace {

void write(const std::string& name, const std::string& text) {
  std::ofstream file(name, std::ios::binary);
  file << text << std::flush;
  if (!file) throw std::runtime_error(name + " can't be written");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: soak_report FOLDER OUT\n"
                 "FOLDER: what soak/run has noted; OUT: where soak.md, soak.json, soak.svg go\n";
    return 2;
  }
  try {
    const soak::Findings findings = soak::findingsIn(argv[1]);
    const std::string out = argv[2];
    write(out + "/soak.md", pageOf(findings));
    write(out + "/soak.json", jsonOf(findings).dump(2) + '\n');
    write(out + "/soak.svg", soak::pictureOf(findings.memory));
    for (const soak::Requirement& one : findings.requirements) {
      std::cout << (one.held ? "held: " : "NOT HELD: ") << one.what << " (" << one.found << ")\n";
    }
    return findings.allHeld() ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << "soak_report: " << error.what() << '\n';
    return 1;
  }
}
