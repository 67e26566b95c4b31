// Three angles one after the other, against Eigen's products of rotations.

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/math/EigenForms.h"
#include "tests/math/SeededValues.h"

namespace {

using FromEuler = void (Matrix3::*)(const double&, const double&, const double&);
using ToEuler = bool (Matrix3::*)(double&, double&, double&) const;

struct EulerOrder {
  std::string name;
  FromEuler from;
  ToEuler to;

  /// The product of the three turns, the first letter's on the left.
  [[nodiscard]] Eigen::Matrix3d product(double a, double b, double c) const {
    const auto about = [this](std::size_t letter, double angle) {
      return Eigen::AngleAxisd(angle, Eigen::Vector3d::Unit(name[letter] - 'X'));
    };
    return (about(0, a) * about(1, b) * about(2, c)).toRotationMatrix();
  }
};

const EulerOrder kEulerOrders[] = {
    {"XYZ", &Matrix3::fromEulerAnglesXYZ, &Matrix3::toEulerAnglesXYZ},
    {"XZY", &Matrix3::fromEulerAnglesXZY, &Matrix3::toEulerAnglesXZY},
    {"YXZ", &Matrix3::fromEulerAnglesYXZ, &Matrix3::toEulerAnglesYXZ},
    {"YZX", &Matrix3::fromEulerAnglesYZX, &Matrix3::toEulerAnglesYZX},
    {"ZXY", &Matrix3::fromEulerAnglesZXY, &Matrix3::toEulerAnglesZXY},
    {"ZYX", &Matrix3::fromEulerAnglesZYX, &Matrix3::toEulerAnglesZYX},
};

TEST(EulerProperties, EachOrderIsTheProductOfItsTurns) {
  SeededValues values(51);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const double a = values.between(-4, 4);
    const double b = values.between(-4, 4);
    const double c = values.between(-4, 4);
    for (const EulerOrder& order : kEulerOrders) {
      Matrix3 matrix;
      (matrix.*order.from)(a, b, c);
      ASSERT_LT(apart(eigen(matrix), order.product(a, b, c)), 1e-12) << order.name;
    }
  }
}

TEST(EulerProperties, EachOrderGoesThereAndBackAwayFromThePoles) {
  SeededValues values(52);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const double a = values.between(-3.14, 3.14);
    const double b = values.between(-1.56, 1.56);
    const double c = values.between(-3.14, 3.14);
    for (const EulerOrder& order : kEulerOrders) {
      SCOPED_TRACE(order.name);
      Matrix3 matrix;
      (matrix.*order.from)(a, b, c);
      double aBack = 9;
      double bBack = 9;
      double cBack = 9;
      ASSERT_TRUE((matrix.*order.to)(aBack, bBack, cBack));
      ASSERT_NEAR(aBack, a, 1e-11);
      ASSERT_NEAR(bBack, b, 1e-11);
      ASSERT_NEAR(cBack, c, 1e-11);
    }
  }
}

// The middle entry must be exactly 1 or -1, which it is here: cos and sin of a quarter turn.
TEST(EulerProperties, EachOrderSaysFalseAtBothPoles) {
  SeededValues values(53);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const double a = values.between(-3, 3);
    const double c = values.between(-3, 3);
    const double pole = (i % 2 == 0 ? 0.5 : -0.5) * PI;
    for (const EulerOrder& order : kEulerOrders) {
      SCOPED_TRACE(order.name);
      Matrix3 matrix;
      (matrix.*order.from)(a, pole, c);
      double aBack = 9;
      double bBack = 9;
      double cBack = 9;
      ASSERT_FALSE((matrix.*order.to)(aBack, bBack, cBack));
      ASSERT_EQ(bBack, pole);
      ASSERT_EQ(cBack, 0);
    }
  }
}

// Of the six, three tell an angle at the poles that builds the same rotation again, and one does so
// at one of them.
TEST(EulerProperties, AngleAtThePoleBuildsTheRotationInHalfTheOrders) {
  SeededValues values(54);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const double a = values.between(-3, 3);
    const double c = values.between(-3, 3);
    const bool top = i % 2 == 0;
    for (const EulerOrder& order : kEulerOrders) {
      if (order.name != "XYZ" && order.name != "YZX" && order.name != "ZXY" &&
          !(order.name == "ZYX" && top)) {
        continue;
      }
      SCOPED_TRACE(order.name);
      Matrix3 matrix;
      (matrix.*order.from)(a, top ? PI / 2 : -PI / 2, c);
      double aBack = 9;
      double bBack = 9;
      double cBack = 9;
      (matrix.*order.to)(aBack, bBack, cBack);
      ASSERT_LT(apart(eigen(matrix), order.product(aBack, bBack, cBack)), 1e-12);
    }
  }
}

TEST(EulerProperties, QuaternionTurnsAboutXThenZThenYAndComesBack) {
  SeededValues values(55);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const VecPosition angles(values.between(-179, 179), values.between(-179, 179),
                             values.between(-86, 86));
    SCOPED_TRACE(testing::Message() << angles);
    Quaternion q;
    q.fromEulerAngles(angles);
    const EulerOrder yzx = kEulerOrders[3];
    ASSERT_LT(apart(eigen(q.toMatrix3()),
                    yzx.product(Deg2Rad(angles.y), Deg2Rad(angles.z), Deg2Rad(angles.x))),
              1e-12);
    const VecPosition back = (q * values.between(0.5, 2)).toEulerAngles();
    ASSERT_LT(apart(eigen(back), eigen(angles)), 1e-9);
  }
}

TEST(EulerProperties, QuaternionNearThePolesTellsPiHalvesAndNoX) {
  SeededValues values(56);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const double z = values.between(86.4, 93.6);
    Quaternion q;
    q.fromEulerAngles(
        VecPosition(values.between(-180, 180), values.between(-180, 180), i % 2 == 0 ? z : -z));
    const VecPosition angles = q.toEulerAngles();
    ASSERT_EQ(angles.z, 1.5707963267948966);
    ASSERT_EQ(angles.x, 0);
    const double half = Rad2Deg(std::atan2(q.x, q.w));
    ASSERT_NEAR(angles.y, i % 2 == 0 ? 2 * half : -2 * half, 1e-9);
  }
}

}  // namespace
