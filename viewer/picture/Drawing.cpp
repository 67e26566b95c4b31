#include "viewer/picture/Drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "arena/model/FieldTable.h"

namespace arena::picture {
namespace {

/// The picture's unit is the centimetre on the field; y points down in it.
constexpr double kPerMetre = 100;
constexpr int kMargin = 100;
constexpr int kTitleHeight = 110;
constexpr int kLegendHeight = 90;
constexpr int kHalfLength = static_cast<int>(kFieldLength / 2 * kPerMetre);
constexpr int kHalfWidth = static_cast<int>(kFieldWidth / 2 * kPerMetre);
/// Told apart by their lightness too; on the field's green both have a contrast above 3.
constexpr std::array<const char*, 2> kTeamColours{"#9ecbff", "#ffb347"};

std::string number(double metres) {
  return std::to_string(std::lround(metres * kPerMetre));
}

std::string place(const Point& point) {
  return number(point.x) + "," + number(-point.y);
}

std::string escaped(std::string_view text) {
  std::string out;
  for (const char c : text) {
    switch (c) {
      case '<':
        out += "&lt;";
        break;
      case '&':
        out += "&amp;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        // Bytes of other alphabets may be cut in mid-letter: a picture is better without them.
        out +=
            static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) > 0x7e ? '?' : c;
    }
  }
  return out;
}

std::size_t rowOf(Side side) {
  return static_cast<std::size_t>(side);
}

void addLines(std::string& svg, const Lines& lines, const std::string& look) {
  for (const auto& line : lines) {
    if (line.size() < 2) continue;
    svg += "<polyline ";
    svg += look;
    svg += " points=\"";
    for (const Point& point : line) svg.append(place(point)).append(" ");
    svg.back() = '"';
    svg += "/>\n";
  }
}

void addField(std::string& svg) {
  const std::string length = std::to_string(2 * kHalfLength);
  const std::string width = std::to_string(2 * kHalfWidth);
  svg += "<g fill=\"none\" stroke=\"#fff\" stroke-width=\"5\">\n<rect x=\"-" +
         std::to_string(kHalfLength) + "\" y=\"-" + std::to_string(kHalfWidth) + "\" width=\"" +
         length + "\" height=\"" + width + "\"/>\n<line x1=\"0\" x2=\"0\" y1=\"-" +
         std::to_string(kHalfWidth) + "\" y2=\"" + std::to_string(kHalfWidth) +
         "\"/>\n<circle r=\"180\"/>\n";
  const std::string mouth = number(kGoalWidth);
  const std::string top = number(-kGoalWidth / 2);
  for (const int x : {-kHalfLength - 60, kHalfLength}) {
    svg.append("<rect x=\"").append(std::to_string(x)).append("\" y=\"").append(top);
    svg.append("\" width=\"60\" height=\"").append(mouth);
    svg += "\" fill=\"#fff\" fill-opacity=\".25\"/>\n";
  }
  svg += "</g>\n";
}

void addTitle(std::string& svg, const Drawing& drawing) {
  const auto name = [&drawing](std::size_t row, const char* otherwise) {
    const std::string& given = drawing.teamNames.at(row);
    return escaped(given.empty() ? otherwise : given);
  };
  const auto seconds = static_cast<long>(drawing.clock);
  const std::string rest = std::to_string(seconds % 60);
  const std::string y = std::to_string(-kHalfWidth - kMargin - 20);
  svg += "<g font-size=\"70\" font-weight=\"bold\" text-anchor=\"middle\" fill=\"#fff\">\n";
  svg += "<text x=\"0\" y=\"" + y + "\"><tspan fill=\"" + kTeamColours[0] + "\">" +
         name(0, "left") + "</tspan>  " + std::to_string(drawing.score[0]) + " : " +
         std::to_string(drawing.score[1]) + "  <tspan fill=\"" + kTeamColours[1] + "\">" +
         name(1, "right") + "</tspan></text>\n</g>\n";
  svg += "<text x=\"" + std::to_string(kHalfLength) + "\" y=\"" + y +
         "\" font-size=\"45\" text-anchor=\"end\" fill=\"#fff\">" + std::to_string(seconds / 60) +
         ":" + (rest.size() < 2 ? "0" : "") + rest + " played</text>\n";
}

void addMark(std::string& svg, const Mark& mark) {
  const std::string colour = kTeamColours.at(rowOf(mark.side));
  const std::string who = std::string(nameOf(mark.side)) +
                          (mark.number > 0 ? " " + std::to_string(mark.number) : std::string());
  svg += "<g class=\"" + std::string(mark.goal ? "goal" : "shot") + "\"><title>" +
         (mark.goal ? "goal" : "shot") + " of " + who + "</title>";
  svg += "<line x1=\"" + number(mark.from.x) + "\" y1=\"" + number(-mark.from.y) + "\" x2=\"" +
         number(mark.to.x) + "\" y2=\"" + number(-mark.to.y) + "\" stroke=\"" + colour +
         "\" stroke-width=\"10\" stroke-dasharray=\"24 12\"/>";
  svg += "<circle cx=\"" + number(mark.to.x) + "\" cy=\"" + number(-mark.to.y) + "\" r=\"" +
         (mark.goal ? "22" : "12") + "\" fill=\"" + (mark.goal ? colour : "none") + "\" stroke=\"" +
         colour + "\" stroke-width=\"7\"/></g>\n";
}

void addWalker(std::string& svg, const Walker& walker) {
  const std::string colour = kTeamColours.at(rowOf(walker.shirt.side));
  const std::string x = number(walker.last.x);
  const std::string y = number(-walker.last.y);
  // The side shows in the shape as well as in the colour.
  if (walker.shirt.side == Side::kLeft) {
    svg += "<circle cx=\"" + x + "\" cy=\"" + y + "\" r=\"24\" fill=\"" + colour + "\"/>";
  } else {
    svg += "<rect x=\"" + number(walker.last.x - 0.23) + "\" y=\"" + number(-walker.last.y - 0.23) +
           "\" width=\"46\" height=\"46\" fill=\"" + colour + "\"/>";
  }
  svg += "<text x=\"" + x + "\" y=\"" + number(-walker.last.y + 0.13) +
         "\" font-size=\"38\" font-weight=\"bold\" text-anchor=\"middle\" fill=\"#10240f\">" +
         std::to_string(walker.shirt.number) + "</text>\n";
}

void addLegend(std::string& svg, const Drawing& drawing) {
  const auto shots = [&drawing](Side side) {
    return std::count_if(drawing.marks.begin(), drawing.marks.end(),
                         [side](const Mark& mark) { return mark.side == side; });
  };
  svg += "<g font-size=\"36\" text-anchor=\"middle\" fill=\"#fff\">\n<text x=\"0\" y=\"" +
         std::to_string(kHalfWidth + kMargin - 10) +
         "\">white: the ball; thin: the players, numbered where they were last</text>\n<text "
         "x=\"0\" y=\"" +
         std::to_string(kHalfWidth + kMargin + 40) +
         "\">dashed to a ring: a shot, to a disc: a goal; shots " +
         std::to_string(shots(Side::kLeft)) + " : " + std::to_string(shots(Side::kRight)) +
         "</text>\n</g>\n";
}

}  // namespace

std::string svgOf(const Drawing& drawing) {
  const int left = -kHalfLength - kMargin;
  const int top = -kHalfWidth - kMargin - kTitleHeight;
  const std::string box =
      std::to_string(left) + " " + std::to_string(top) + " " + std::to_string(-2 * left) + " " +
      std::to_string(2 * kHalfWidth + 2 * kMargin + kTitleHeight + kLegendHeight);
  std::string svg =
      "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"" + box +
      "\" font-family=\"sans-serif\">\n<title>A match from above</title>\n<rect x=\"" +
      std::to_string(left) + "\" y=\"" + std::to_string(top) +
      "\" width=\"100%\" height=\"100%\" fill=\"#1e4d2b\"/>\n";
  addField(svg);
  addTitle(svg, drawing);
  for (const Walker& walker : drawing.walkers) {
    addLines(svg, walker.lines,
             std::string("fill=\"none\" stroke-width=\"5\" stroke-opacity=\".7\" stroke=\"") +
                 kTeamColours.at(rowOf(walker.shirt.side)) + "\"");
  }
  addLines(svg, drawing.ball, "class=\"ball\" fill=\"none\" stroke-width=\"7\" stroke=\"#fff\"");
  for (const Mark& mark : drawing.marks) addMark(svg, mark);
  for (const Walker& walker : drawing.walkers) addWalker(svg, walker);
  addLegend(svg, drawing);
  svg += "</svg>\n";
  return svg;
}

}  // namespace arena::picture
