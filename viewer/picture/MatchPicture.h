#pragma once

/// A match from above as one picture: where ball and players went, who shot, who scored. Shown the
/// records of a match in order, it gives what there is to draw at any time.

#include <cstdint>
#include <map>
#include <optional>

#include "arena/match/BallPlay.h"
#include "arena/record/CycleRecord.h"
#include "viewer/picture/Drawing.h"

namespace arena::picture {

class MatchPicture {
 public:
  void add(const CycleRecord& record);
  /// Walkers in order of side and number.
  [[nodiscard]] Drawing drawing() const;

 private:
  void addBall(const CycleRecord& record);
  void addPlayer(const PlayerRecord& player);

  BallPlay ballPlay_{};
  Drawing drawing_{};                          ///< all but the walkers
  std::map<std::uint32_t, Walker> walkers_{};  ///< by session
  std::optional<std::size_t> flying_{};        ///< row of the shot that is on its way
  Point lastBall_{};
};

}  // namespace arena::picture
