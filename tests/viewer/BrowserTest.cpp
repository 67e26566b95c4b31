#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

#include "tests/arena/main/Program.h"
#include "tests/support/TempDir.h"
#include "tests/viewer/Browser.h"
#include "tests/viewer/StagedMatch.h"
#include "viewer/server/Viewer.h"

namespace arena::view {
namespace {

using nlohmann::json;
using test::Browser;
using test::Pixels;
using test::Program;
using test::StagedMatch;

ViewSettings port(std::uint16_t number) {
  ViewSettings settings;
  settings.port = number;
  settings.places.pageFolder = PITCH_SOURCE_DIR "/viewer/page";
  return settings;
}

/// A staged match that goes on at real time in a thread of its own, and its viewer.
class LiveMatch {
 public:
  explicit LiveMatch(std::uint16_t number = 0) : viewer_(port(number)) {
    thread_ = std::thread([this] {
      auto next = std::chrono::steady_clock::now();
      while (!stop_) {
        if (shoot_.exchange(false)) match_.shootAtRightGoal();
        if (roll_.exchange(false)) match_.rollBall();
        viewer_.show(match_.advance());
        next += std::chrono::milliseconds(20);
        std::this_thread::sleep_until(next);
      }
    });
  }
  ~LiveMatch() {
    stop_ = true;
    thread_.join();
  }
  LiveMatch(const LiveMatch&) = delete;
  LiveMatch& operator=(const LiveMatch&) = delete;

  void shoot() { shoot_ = true; }
  void roll() { roll_ = true; }
  [[nodiscard]] std::string address() const { return viewer_.address(); }
  [[nodiscard]] std::uint16_t portNumber() const { return viewer_.port(); }

 private:
  Viewer viewer_;
  StagedMatch match_{};
  std::atomic<bool> stop_{false};
  std::atomic<bool> shoot_{false};
  std::atomic<bool> roll_{false};
  std::thread thread_{};
};

/// Until the match is on the screen.
void waitForPicture(Browser& browser) {
  browser.waitFor("pitch.state.drawn > 2 && pitch.state.robots === 12");
}

void waitForPlay(Browser& browser) {
  browser.waitFor("pitch.state.cycle > " + std::to_string(test::kInPlay));
}

/// Where pictures are kept for a person to look at.
std::string artifact(const std::string& name) {
  const std::filesystem::path folder =
      std::filesystem::path(PITCH_BIN_DIR).parent_path() / "artifacts";
  std::filesystem::create_directories(folder);
  return (folder / name).string();
}

void keep(const std::string& name, const std::string& png) {
  std::ofstream(artifact(name), std::ios::binary) << png;
}

void expectAPicture(const Pixels& pixels) {
  EXPECT_EQ(pixels.width, 1280);
  EXPECT_GT(pixels.height, 500);
  EXPECT_GT(pixels.colours, 500);
  EXPECT_LT(pixels.commonest, 0.8);
  EXPECT_GT(pixels.green, 0.2);
}

TEST(Browser, PageLoadsWithoutAConsoleErrorOrAnyForeignRequest) {
  LiveMatch match;
  Browser browser;
  browser.open(match.address());
  waitForPicture(browser);
  EXPECT_EQ(browser.errors(), std::vector<std::string>{});
  const json foreign = browser.eval(
      "performance.getEntriesByType('resource').map((one) => one.name)"
      ".filter((name) => !name.startsWith(location.origin + '/'))");
  EXPECT_EQ(foreign, json::array());
  EXPECT_EQ(browser.eval("document.getElementById('notice').hidden"), true);
}

TEST(Browser, LiveMatchMovesTheBallAndShowsScoreAndEvents) {
  LiveMatch match;
  Browser browser;
  browser.open(match.address());
  waitForPicture(browser);
  waitForPlay(browser);
  const double before = browser.eval("pitch.ball.position.x").get<double>();
  match.shoot();
  browser.waitFor("Math.abs(pitch.ball.position.x - " + std::to_string(before) + ") > 1");
  browser.waitFor("document.getElementById('left-goals').textContent === '1'");
  browser.waitFor(
      "document.getElementById('mode').textContent === 'GOAL for left' || "
      "document.getElementById('mode').textContent.startsWith('kick-off for right')");
  browser.waitFor(
      "document.querySelector('#event-list .goal')?.textContent.includes('goal for left (Otters), "
      "1:0')");
  EXPECT_EQ(browser.eval("document.getElementById('left-name').textContent"), "Otters");
  EXPECT_EQ(browser.eval("document.getElementById('right-name').textContent"), "Herons");
  EXPECT_EQ(browser.errors(), std::vector<std::string>{});
}

TEST(Browser, RecordScrubsToAGoalAndShowsTheScore) {
  const TempDir folder;
  const std::string file = (folder.path() / "match.rec").string();
  const long goal = test::writeRecordWithGoal(file);
  Program program({"replay", file, "--view", "--view-port", "0"});
  std::string address;
  for (int lines = 0; lines < 200 && address.empty(); ++lines) {
    const std::string line = program.line();
    const auto at = line.find("http://");
    if (at != std::string::npos) address = line.substr(at);
  }
  ASSERT_FALSE(address.empty());
  Browser browser;
  browser.open(address);
  waitForPicture(browser);
  browser.press(" ");
  browser.waitFor("pitch.state.pace === 'paused'");

  const auto scrub = [&browser](long cycle) {
    browser.eval("(() => { const place = document.getElementById('place'); place.value = " +
                 std::to_string(cycle) +
                 "; place.dispatchEvent(new Event('input')); place.dispatchEvent(new "
                 "Event('change')); })()");
    browser.waitFor("pitch.state.cycle === " + std::to_string(cycle));
  };
  browser.waitFor("Number(document.getElementById('place').max) >= " + std::to_string(goal));
  scrub(goal + 5);
  EXPECT_EQ(browser.eval("document.getElementById('left-goals').textContent"), "1");
  scrub(goal - 5);
  EXPECT_EQ(browser.eval("document.getElementById('left-goals').textContent"), "0");

  browser.press(".");
  browser.waitFor("pitch.state.cycle === " + std::to_string(goal - 4));
  browser.press(",,");
  browser.waitFor("pitch.state.cycle === " + std::to_string(goal - 6));
  scrub(100);
  browser.press("g");
  browser.waitFor("pitch.state.cycle === " + std::to_string(goal - 50));
  browser.press(" ");
  browser.waitFor("document.getElementById('left-goals').textContent === '1'");
  EXPECT_EQ(browser.errors(), std::vector<std::string>{});
  program.signal(SIGINT);
  EXPECT_EQ(program.wait(), 0);
}

TEST(Browser, ScreenshotShowsTheMatchFromEveryCamera) {
  LiveMatch match;
  Browser browser;
  browser.open(match.address());
  waitForPicture(browser);
  waitForPlay(browser);
  std::vector<std::string> pictures;
  json eyes = json::array();
  for (const auto& [key, name] : {std::pair("1", "orbit"), std::pair("2", "ball"),
                                  std::pair("3", "player"), std::pair("4", "side")}) {
    browser.press(key);
    browser.waitFor(std::string("pitch.state.camera === '") + name + "'");
    EXPECT_EQ(
        browser.eval("document.querySelector('[data-camera][aria-pressed=true]').dataset.camera"),
        name);
    const long drawn = browser.eval("pitch.state.drawn").get<long>();
    browser.waitFor("pitch.state.drawn > " + std::to_string(drawn + 15));
    const json eye = browser.eval("pitch.state.eye.map(Math.round)");
    for (const json& other : eyes) EXPECT_NE(eye, other) << name;
    eyes.push_back(eye);
    pictures.push_back(browser.screenshot());
    keep(std::string("camera-") + name + ".png", pictures.back());
  }
  for (const std::string& picture : pictures) expectAPicture(browser.pixelsOf(picture));
}

TEST(Browser, EveryCameraHasAButtonAndTheOneForTheBallKeepsItInTheMiddle) {
  LiveMatch match;
  Browser browser;
  browser.open(match.address());
  waitForPicture(browser);
  waitForPlay(browser);
  for (const std::string name : {"side", "player", "orbit", "ball"}) {
    browser.click("[data-camera=" + name + "]");
    browser.waitFor("pitch.state.camera === '" + name + "'");
  }
  match.roll();
  browser.waitFor("pitch.ball.position.x > 1");
  browser.waitFor("pitch.rig.target.distanceTo(pitch.ball.position) < 0.05");
  EXPECT_GT(browser.eval("pitch.rig.target.x").get<double>(), 0.0);
}

// By hand: frames at 0 and 20 ms, so half of the way has passed at 30 ms.
TEST(Browser, PictureGlidesBetweenTwoFrames) {
  LiveMatch match;
  Browser browser;
  browser.open(match.address());
  waitForPicture(browser);
  const json shares = browser.eval(
      "(() => { const motion = new pitch.motion.constructor();"
      "  motion.push({ cycle: 7 }, 0); motion.push({ cycle: 8 }, 20);"
      "  const shares = [20, 30, 40, 90].map((now) => motion.at(now).share);"
      "  motion.push({ cycle: 500 }, 40);"  // a jump in time: shown at once
      "  return [...shares, motion.at(40).share]; })()");
  EXPECT_EQ(shares, (json{0, 0.5, 1, 1, 1}));
}

TEST(Browser, TwelveRobotsAreDrawnEachWithAllItsJoints) {
  LiveMatch match;
  Browser browser;
  browser.open(match.address());
  waitForPicture(browser);
  waitForPlay(browser);
  EXPECT_EQ(browser.eval("pitch.robots.bySlot.size"), 12);
  EXPECT_EQ(browser.eval(
                "[...pitch.robots.bySlot.values()].every((robot) => robot.joints.length === 22)"),
            true);
  EXPECT_EQ(browser.eval("[...document.getElementById('player').options].map((one) => one.text)"),
            (json{"left 1", "left 2", "left 3", "left 4", "left 5", "left 6", "right 1", "right 2",
                  "right 3", "right 4", "right 5", "right 6"}));
  // Drawn poses are the true ones: feet of a standing robot lie on the ground.
  const json lowest = browser.eval(
      "[...pitch.robots.bySlot.values()].map((robot) => {"
      "  robot.group.updateMatrixWorld(true);"
      "  const foot = robot.links[20].matrixWorld.elements;"
      "  return foot[14]; })");
  for (const json& height : lowest) EXPECT_NEAR(height.get<double>(), 0.01, 0.015);
}

TEST(Browser, ReloadAndReconnectWork) {
  auto match = std::make_unique<LiveMatch>();
  const std::uint16_t number = match->portNumber();
  Browser browser;
  browser.open(match->address());
  waitForPicture(browser);
  browser.reload();
  waitForPicture(browser);
  EXPECT_EQ(browser.eval("pitch.state.connections"), 1);

  match.reset();
  browser.waitFor("!document.getElementById('notice').hidden");
  match = std::make_unique<LiveMatch>(number);
  browser.waitFor("pitch.state.connections === 2 && document.getElementById('notice').hidden");
  waitForPicture(browser);
}

TEST(Browser, LastMinuteOfALiveMatchCanBePausedSteppedAndLeft) {
  LiveMatch match;
  Browser browser;
  browser.open(match.address());
  waitForPicture(browser);
  browser.waitFor("pitch.state.cycle > 20 && pitch.state.pace === 'live'");
  browser.click("#pause");
  browser.waitFor("pitch.state.pace === 'paused'");
  const long cycle = browser.eval("pitch.state.cycle").get<long>();
  browser.click("#step-back");
  browser.waitFor("pitch.state.cycle === " + std::to_string(cycle - 1));
  browser.eval(
      "(() => { const speed = document.getElementById('speed'); speed.value = '0.5'; "
      "speed.dispatchEvent(new Event('change')); })()");
  browser.waitFor("pitch.timebar.time.speed === 0.5");
  browser.click("#pause");
  browser.waitFor("pitch.state.pace === 'plays' && pitch.state.cycle > " + std::to_string(cycle));
  browser.press("l");
  browser.waitFor("pitch.state.pace === 'live'");
}

TEST(Browser, MindShowsBeliefBesideTruthAndSaysWhichIsWhich) {
  LiveMatch match;
  Browser browser;
  browser.open(match.address());
  waitForPicture(browser);
  waitForPlay(browser);
  EXPECT_EQ(browser.eval("document.getElementById('mind-panel').hidden"), true);
  browser.press("m");
  browser.waitFor("pitch.state.mindsDrawn === 1 && !document.getElementById('mind-panel').hidden");
  // The staged players report their places 0.36 m off: hypot(0.30, 0.20).
  browser.waitFor(
      "document.querySelector('#mind-rows tr "
      "td:last-child').textContent.match(/^0\\.3[5-7]\\sm$/)");
  const std::string text = browser.eval("document.getElementById('mind-panel').innerText");
  for (const char* part : {"Mind of left 1", "Believed: from the player's own reports",
                           "Plan: from the lines that it prints", "Shown: the arena's own record",
                           "True: the arena's world", "4: walk"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\nis not in\n" << text;
  }
  browser.press("n");
  browser.waitFor("document.getElementById('mind-title').textContent === 'Mind of left 2'");
  browser.press("M");
  browser.waitFor("pitch.state.mindsDrawn === 12");
  keep("minds.png", browser.screenshot());
  browser.press("M");
  browser.waitFor("pitch.state.mindsDrawn === 0");
  EXPECT_EQ(browser.errors(), std::vector<std::string>{});
}

TEST(Browser, EveryControlIsReachedByKeyboardAndHasAName) {
  LiveMatch match;
  Browser browser;
  browser.open(match.address());
  waitForPicture(browser);
  const json nameless = browser.eval(
      "[...document.querySelectorAll('button, select, input')].filter((one) => "
      "!(one.ariaLabel || one.textContent.trim() || one.labels?.length)).map((one) => one.id)");
  EXPECT_EQ(nameless, json::array());
  EXPECT_EQ(browser.eval("[...document.querySelectorAll('button, select, input, canvas')]"
                         ".filter((one) => one.tabIndex < 0).length"),
            0);
  browser.eval("document.getElementById('place').focus()");
  browser.press(" ");  // the slider leaves the space bar to the page
  browser.waitFor("pitch.state.pace === 'paused'");
  browser.press("h");
  browser.waitFor("document.getElementById('help').open");
  browser.click("#help-close");
  browser.waitFor("!document.getElementById('help').open");
}

// The ratio of luminances that accessibility guidelines ask of text, 4.5, with what lies behind a
// panel at its worst: white.
TEST(Browser, EveryTextHasAReadableContrast) {
  LiveMatch match;
  Browser browser;
  browser.open(match.address());
  waitForPicture(browser);
  waitForPlay(browser);
  browser.press("m");
  browser.waitFor("document.getElementById('mind-rows').children.length > 2");
  const json poor = browser.eval(R"((() => {
      const parts = (colour) => {
        const [r, g, b, a = 1] = colour.match(/[\d.]+/g).map(Number);
        return [r, g, b, a];
      };
      const over = (top, below) => below.map((part, i) => part + (top[i] - part) * top[3]);
      const behind = (one) => {
        const below = one.parentElement ? behind(one.parentElement) : [255, 255, 255];
        return over(parts(getComputedStyle(one).backgroundColor), below);
      };
      const luminance = (rgb) => rgb
        .map((part) => part / 255)
        .map((part) => (part <= 0.03928 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4))
        .reduce((sum, part, i) => sum + part * [0.2126, 0.7152, 0.0722][i], 0);
      // What a panel lies on is the scene, not the page's dark ground.
      document.documentElement.style.background = document.body.style.background = 'transparent';
      const own = (one) => [...one.childNodes].some((node) => node.nodeType === 3 && node.data.trim());
      const texts = [...document.querySelectorAll('.panel *, dialog *')].filter(own);
      const ratios = texts.map((one) => {
        const [a, b] = [parts(getComputedStyle(one).color).slice(0, 3), behind(one)].map(luminance);
        return [one.textContent, (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05)];
      });
      return { count: ratios.length, poor: ratios.filter(([, ratio]) => ratio < 4.5) };
    })())");
  EXPECT_GT(poor.at("count").get<int>(), 40);
  EXPECT_EQ(poor.at("poor"), json::array());
}

TEST(Browser, SaysPlainlyThatThreeIsMissing) {
  ViewSettings settings = port(0);
  settings.places.threeModule = "/nowhere/three.module.js";
  const Viewer viewer(settings);
  Browser browser;
  browser.open(viewer.address());
  browser.waitFor(
      "!document.getElementById('notice').hidden && "
      "document.getElementById('notice').textContent.includes('libjs-three')");
}

// The picture of the README: docs/viewer.png is a copy of what this test leaves behind.
TEST(Browser, PictureForTheReadme) {
  LiveMatch match;
  Browser browser;
  browser.open(match.address());
  waitForPicture(browser);
  waitForPlay(browser);
  browser.press("4m");
  browser.eval("pitch.choosePlayer(5)");
  browser.eval(
      "Object.assign(pitch.rig.views.side, { distance: 9.5, elevation: 24, azimuth: -82 })");
  match.roll();
  browser.waitFor(
      "pitch.state.mindsDrawn === 1 && pitch.minds.get(5).heading && "
      "pitch.ball.position.x > 0.8 && pitch.ball.position.x < 2.8");
  const std::string png = browser.screenshot();
  keep("viewer.png", png);
  expectAPicture(browser.pixelsOf(png));
}

}  // namespace
}  // namespace arena::view
