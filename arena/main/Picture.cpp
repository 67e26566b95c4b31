#include "arena/main/Picture.h"

#include <fstream>
#include <stdexcept>

#include "arena/main/OutputFile.h"
#include "arena/main/RecordFile.h"
#include "viewer/picture/MatchPicture.h"

namespace arena {

int drawPicture(const PictureOptions& options) {
  RecordFile file("picture", options.recordFile);
  picture::MatchPicture picture;
  while (const auto record = file.next()) picture.add(*record);

  std::ofstream out = openedFor("--output", options.pictureFile);
  out << svgOf(picture.drawing()) << std::flush;
  if (!out) throw std::runtime_error("the picture can't be written to " + options.pictureFile);
  return file.close();
}

}  // namespace arena
