#include "viewer/picture/MatchPicture.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace arena::picture {
namespace {

/// [m] Points closer than this to the last one add nothing that could be seen.
constexpr double kNearby = 0.03;
/// [m] in a cycle: 25 m/s. What moves faster was put there.
constexpr double kJump = 0.5;

double distance(const Point& a, const Point& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

void extend(Lines& lines, const Point& point, bool fresh) {
  if (lines.empty() || fresh) {
    lines.push_back({point});
  } else if (distance(lines.back().back(), point) >= kNearby) {
    lines.back().push_back(point);
  }
}

bool touchedByOthers(const CycleRecord& record, const Mark& shot) {
  return std::any_of(record.players.begin(), record.players.end(), [&](const auto& player) {
    return player.touchedBall && player.shirt && *player.shirt != Shirt{shot.side, shot.number};
  });
}

}  // namespace

void MatchPicture::add(const CycleRecord& record) {
  addBall(record);
  for (const PlayerRecord& player : record.players) addPlayer(player);
  drawing_.teamNames = record.teamNames;
  drawing_.score = record.score;
  drawing_.clock = record.clock;
}

void MatchPicture::addPlayer(const PlayerRecord& player) {
  if (!player.shirt) return;
  const Point at{player.position[0], player.position[1]};
  Walker& walker = walkers_[player.session];
  const bool put = player.beam || player.moved || distance(walker.last, at) > kJump;
  walker.shirt = *player.shirt;
  walker.last = at;
  extend(walker.lines, at, put);
}

void MatchPicture::addBall(const CycleRecord& record) {
  const Point at{record.ball[0], record.ball[1]};
  const bool put = distance(lastBall_, at) > kJump;
  extend(drawing_.ball, at, put);
  lastBall_ = at;

  const BallNews news = ballPlay_.add(record);
  std::vector<Mark>& marks = drawing_.marks;
  if (flying_) {
    if (!put) marks[*flying_].to = at;
    if (put || touchedByOthers(record, marks[*flying_])) flying_.reset();
  }
  if (news.shot) {
    marks.push_back({news.shot->shirt.side, news.shot->shirt.number, at, at, false});
    flying_ = marks.size() - 1;
  }
  for (const Side side : {Side::kLeft, Side::kRight}) {
    const auto row = static_cast<std::size_t>(side);
    if (record.score[row] <= drawing_.score[row]) continue;
    if (!flying_ || marks[*flying_].side != side) {
      marks.push_back({side, news.goal ? news.goal->shirt.number : 0, at, at, false});
      flying_ = marks.size() - 1;
    }
    marks[*flying_].goal = true;
  }
  // A shot is over with play.
  if (record.mode != PlayMode::kPlayOn) flying_.reset();
}

Drawing MatchPicture::drawing() const {
  Drawing drawing = drawing_;
  for (const auto& [session, walker] : walkers_) drawing.walkers.push_back(walker);
  std::stable_sort(
      drawing.walkers.begin(), drawing.walkers.end(), [](const Walker& a, const Walker& b) {
        return std::pair(a.shirt.side, a.shirt.number) < std::pair(b.shirt.side, b.shirt.number);
      });
  return drawing;
}

}  // namespace arena::picture
