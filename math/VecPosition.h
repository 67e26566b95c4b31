#pragma once

/// The value class of points and vectors, and the marks that go with it. Everything that handles a
/// place or a direction goes through it; it is copied freely.
///
/// Handedness: in front of means a greater x, left of a SMALLER y, up a greater z. That differs
/// from the usual mathematical reading by design.
/// Spherical form: r is the magnitude, theta the azimuth in the x-y plane, phi the elevation above
/// it, both in degrees: x = r cos phi cos theta, y = r cos phi sin theta, z = r sin phi.

#include <ostream>
#include <string>

/// How three numbers are to be read. Any value but CARTESIAN counts as POLAR.
enum CoordSystemT : int {
  CARTESIAN = 0,  ///< (x, y, z)
  POLAR = 1       ///< (r, theta, phi)
};

class VecPosition {
 public:
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  VecPosition() = default;
  constexpr VecPosition(double a, double b, double c = 0.0, CoordSystemT cs = CARTESIAN) {
    setVecPosition(a, b, c, cs);
  }

  // Cartesian numbers make a constant already for the compiler, so that what is built from them at
  // start is there before any code runs.
  constexpr void setVecPosition(double a, double b, double c, CoordSystemT cs = CARTESIAN) {
    if (cs == CARTESIAN) {
      x = a;
      y = b;
      z = c;
    } else {
      *this = getVecPositionFromPolar(a, b, c);
    }
  }
  static VecPosition getVecPositionFromPolar(double r, double theta, double phi);

  bool setX(double value);
  bool setY(double value);
  bool setZ(double value);
  [[nodiscard]] double getX() const { return x; }
  [[nodiscard]] double getY() const { return y; }
  [[nodiscard]] double getZ() const { return z; }

  /// Index 0, 1, 2 is x, y, z. Any other index is reported on standard error and reads -1000; the
  /// non-const form then hands out a stand-in that the next bad access resets.
  double operator[](const int& index) const;
  double& operator[](const int& index);

  /// The angle brought into the closed interval -180 to 180 [deg]; both ends stay as they are.
  static double normalizeAngle(double ang);

  /// Sets all three members to the scalar.
  VecPosition& operator=(const double& d);

  // Member by member, products and quotients too; no tolerance anywhere in this group.
  VecPosition operator+(const VecPosition& p) const;
  VecPosition operator-(const VecPosition& p) const;
  VecPosition operator*(const VecPosition& p) const;
  VecPosition operator/(const VecPosition& p) const;
  VecPosition operator+(const double& d) const;
  VecPosition operator-(const double& d) const;
  VecPosition operator*(const double& d) const;
  /// Multiplies by the reciprocal.
  VecPosition operator/(const double& d) const;
  VecPosition& operator+=(const VecPosition& p);
  VecPosition& operator-=(const VecPosition& p);
  VecPosition& operator*=(const VecPosition& p);
  VecPosition& operator/=(const VecPosition& p);
  VecPosition& operator+=(const double& d);
  VecPosition& operator-=(const double& d);
  VecPosition& operator*=(const double& d);
  /// Multiplies by the reciprocal.
  VecPosition& operator/=(const double& d);
  VecPosition operator-() const;

  // Exact comparisons.
  bool operator==(const VecPosition& p) const;
  bool operator!=(const VecPosition& p) const;
  bool operator==(const double& d) const;
  bool operator!=(const double& d) const;

  [[nodiscard]] double dot(const VecPosition& p) const;
  /// The right-handed vector product.
  [[nodiscard]] VecPosition cross(const VecPosition& p) const;

  // Comparisons of place, all strict; the scalar stands for the other point's member.
  [[nodiscard]] bool isInFrontOf(const VecPosition& p) const;
  [[nodiscard]] bool isInFrontOf(const double& d) const;
  [[nodiscard]] bool isBehindOf(const VecPosition& p) const;
  [[nodiscard]] bool isBehindOf(const double& d) const;
  [[nodiscard]] bool isLeftOf(const VecPosition& p) const;
  [[nodiscard]] bool isLeftOf(const double& d) const;
  [[nodiscard]] bool isRightOf(const VecPosition& p) const;
  [[nodiscard]] bool isRightOf(const double& d) const;
  [[nodiscard]] bool isUpOf(const VecPosition& p) const;
  [[nodiscard]] bool isUpOf(const double& d) const;
  [[nodiscard]] bool isDownOf(const VecPosition& p) const;
  [[nodiscard]] bool isDownOf(const double& d) const;
  // The bounds are not sorted: the first must be the smaller one.
  [[nodiscard]] bool isBetweenX(const VecPosition& p1, const VecPosition& p2) const;
  [[nodiscard]] bool isBetweenX(const double& d1, const double& d2) const;
  [[nodiscard]] bool isBetweenY(const VecPosition& p1, const VecPosition& p2) const;
  [[nodiscard]] bool isBetweenY(const double& d1, const double& d2) const;
  [[nodiscard]] bool isBetweenZ(const VecPosition& p1, const VecPosition& p2) const;
  [[nodiscard]] bool isBetweenZ(const double& d1, const double& d2) const;

  [[nodiscard]] double getMagnitude() const;
  /// On all three axes.
  [[nodiscard]] double getDistanceTo(VecPosition p) const;
  /// Azimuth [deg], -180 to 180; 0 when x and y both are next to nothing.
  [[nodiscard]] double getDirection() const;
  [[nodiscard]] double getTheta() const;
  /// Elevation [deg], -90 to 90; 0 for a vector next to nothing.
  [[nodiscard]] double getPhi() const;

  // Each of these changes the object and returns a copy of it.
  /// Leaves a vector alone whose magnitude isn't above EPSILON.
  VecPosition setMagnitude(double d);
  VecPosition normalize();
  /// About the z axis, by degrees; goes through the polar form, so z takes its rounding too.
  VecPosition rotate(double ang);
  VecPosition relativeToGlobal(VecPosition origin, double ang);
  VecPosition globalToRelative(VecPosition origin, double ang);

  /// this * (1 - f) + p * f.
  [[nodiscard]] VecPosition getVecPositionOnLineFraction(const VecPosition& p, double f) const;
  /// False for a zero vector; otherwise whether the two directions are exactly equal or opposite.
  [[nodiscard]] bool isParallelTo(const VecPosition& v) const;

  /// Two fixed decimals: "(x y z)" or "spheric(r theta phi)".
  [[nodiscard]] std::string str(CoordSystemT cs = CARTESIAN) const;
  /// To standard output; only the cartesian form ends its line.
  void show(CoordSystemT cs = CARTESIAN) const;
};

/// "(x, y, z)" in the stream's current format.
std::ostream& operator<<(std::ostream& os, VecPosition v);

/// No known place.
inline constexpr VecPosition UnknownPosition(-1000.0, -1000.0, -1000.0);
