#include "math/Algebra.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <iostream>

#include "math/Geometry.h"

namespace {

/// Y_AT gives the i-th y, X_AT the i-th x.
template <typename XAt, typename YAt>
Line regression(int n, XAt xAt, YAt yAt) {
  double mx = 0.0;
  double my = 0.0;
  if (n < 1) {
    return {0.0, 1.0, -(mx / n)};
  }
  for (int i = 0; i < n; ++i) {
    mx += xAt(i);
    my += yAt(i);
  }
  mx /= n;
  my /= n;
  double sxy = 0.0;
  double sxx = 0.0;
  for (int i = 0; i < n; ++i) {
    sxy += (xAt(i) - mx) * (yAt(i) - my);
    sxx += (xAt(i) - mx) * (xAt(i) - mx);
  }
  if (std::fabs(sxx) >= EPSILON) {
    const double slope = sxy / sxx;
    const double intercept = my - slope * mx;
    return Line::makeLineFromTwoPoints(VecPosition(0.0, intercept, 0.0),
                                       VecPosition(1.0, slope + intercept, 0.0));
  }
  return {0.0, 1.0, -mx};
}

}  // namespace

double Algebra::fact(unsigned int n) {
  static constexpr std::array<double, 21> fact_table{1.0,
                                                     1.0,
                                                     2.0,
                                                     6.0,
                                                     24.0,
                                                     120.0,
                                                     720.0,
                                                     5040.0,
                                                     40320.0,
                                                     362880.0,
                                                     3628800.0,
                                                     39916800.0,
                                                     479001600.0,
                                                     6227020800.0,
                                                     87178291200.0,
                                                     1307674368000.0,
                                                     20922789888000.0,
                                                     355687428096000.0,
                                                     6402373705728000.0,
                                                     121645100408832000.0,
                                                     2432902008176640000.0};
  return n < fact_table.size() ? fact_table[n] : fact_table.back();
}

int Algebra::abcFormula(double a, double b, double c, double* s1, double* s2) {
  const double discriminant = b * b - 4 * a * c;
  if (std::fabs(discriminant) < EPSILON) {
    *s1 = -b / (2 * a);
    return 1;
  }
  if (discriminant < 0) {
    return 0;
  }
  const double root = std::sqrt(discriminant);
  *s1 = (root - b) / (2 * a);
  *s2 = (-b - root) / (2 * a);
  return 2;
}

Line Statistics::getLinearRegression(double (*points)[2], const int& n) {
  return regression(
      n, [points](int i) { return points[i][0]; }, [points](int i) { return points[i][1]; });
}

Line Statistics::getLinearRegression(const std::vector<VecPosition>& points) {
  return regression(
      static_cast<int>(points.size()),
      [&points](int i) { return points[static_cast<std::size_t>(i)].x; },
      [&points](int i) { return points[static_cast<std::size_t>(i)].y; });
}

double GeomSeries::getFirst(double sum, double ratio, double length) {
  return sum * (1 - ratio) / (1 - std::pow(ratio, length));
}

double GeomSeries::getSum(double first, double ratio, double length) {
  return first * (1 - std::pow(ratio, length)) / (1 - ratio);
}

double GeomSeries::getLength(double first, double ratio, double sum) {
  if (ratio < 0) {
    std::cerr << "(Geometry:getLengthGeomSeries): negative ratio" << std::endl;
  }
  const double t = sum * (ratio - 1) / first + 1;
  if (t <= 0) {
    return -1.0;
  }
  return std::log(t) / std::log(ratio);
}

double GeomSeries::getFirstInf(double sum, double ratio) {
  if (ratio > 1) {
    std::cerr << "(Geometry:getFirstInfGeomSeries):series does not converge" << std::endl;
  }
  return (1 - ratio) * sum;
}

double GeomSeries::getSumInf(double first, double ratio) {
  if (ratio > 1) {
    // The text names another function; it is what readers of the log know.
    std::cerr << "(Geometry:CalcLengthGeomSeries): series does not converge" << std::endl;
  }
  return first / (1 - ratio);
}
