/// pitcharena: reads its command line and does what it says.

#include <exception>
#include <iostream>
#include <string>
#include <variant>

#include "arena/main/Options.h"
#include "arena/main/Picture.h"
#include "arena/main/Play.h"
#include "arena/main/Replay.h"
#include "viewer/server/Viewer.h"

namespace {

constexpr int kUsageStatus = 2;

int run(const arena::PlayOptions& options) {
  return play(options);
}

int run(const arena::ReplayOptions& options) {
  return replay(options);
}

int run(const arena::PictureOptions& options) {
  return drawPicture(options);
}

int run(const arena::HelpText& help) {
  std::cout << help.text;
  return 0;
}

int complain(const std::exception& error, int status) {
  std::cerr << "pitcharena: " << error.what() << '\n';
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return std::visit([](const auto& request) { return run(request); },
                      arena::readOptions({argv + 1, argv + argc}));
  } catch (const arena::UsageError& error) {
    return complain(error, kUsageStatus);
  } catch (const arena::LinkError& error) {
    return complain(error, kUsageStatus);
  } catch (const arena::view::ViewError& error) {
    return complain(error, kUsageStatus);
  } catch (const std::exception& error) {
    return complain(error, 1);
  }
}
