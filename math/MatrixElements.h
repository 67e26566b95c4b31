#pragma once

/// What a square matrix of three or four rows is made of, told once for both sizes. Matrix3 and
/// Matrix4 include it in their sources alone; nobody else has a use for it.

#include <algorithm>
#include <cstddef>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>

namespace matrix_elements {

/// Row-major: [row][column].
template <std::size_t N>
using Elements = double[N][N];

/// Puts f(element) in place of each element.
template <std::size_t N, typename F>
void change(Elements<N>& m, F f) {
  for (double(&row)[N] : m) {
    for (double& element : row) {
      element = f(element);
    }
  }
}

/// Puts f(element, the other's element there) in place of each element.
template <std::size_t N, typename F>
void combine(Elements<N>& m, const Elements<N>& other, F f) {
  for (std::size_t r = 0; r < N; ++r) {
    for (std::size_t c = 0; c < N; ++c) {
      m[r][c] = f(m[r][c], other[r][c]);
    }
  }
}

/// The matrix product left · right, into elements of neither.
template <std::size_t N>
void multiply(const Elements<N>& left, const Elements<N>& right, Elements<N>& product) {
  for (std::size_t r = 0; r < N; ++r) {
    for (std::size_t c = 0; c < N; ++c) {
      product[r][c] = 0.0;
      for (std::size_t k = 0; k < N; ++k) {
        product[r][c] += left[r][k] * right[k][c];
      }
    }
  }
}

template <std::size_t N>
void transpose(Elements<N>& m) {
  for (std::size_t r = 0; r < N; ++r) {
    for (std::size_t c = 0; c < r; ++c) {
      std::swap(m[r][c], m[c][r]);
    }
  }
}

template <std::size_t N>
bool equal(const Elements<N>& m, const Elements<N>& other) {
  return std::equal(&m[0], &m[0] + N, &other[0],
                    [](const double(&row)[N], const double(&there)[N]) {
                      return std::equal(row, row + N, there);
                    });
}

/// A row that is there: another index than 0 to N - 1 is reported on standard error under the name
/// of the class, and stands for the nearest row, so that nothing outside the matrix is touched.
template <std::size_t N>
int rowWithin(const char* className, int index) {
  constexpr int kLast = static_cast<int>(N) - 1;
  if (index < 0 || index > kLast) {
    std::cerr << "(" << className << "::operator []) index out of range: " << index << std::endl;
  }
  return std::clamp(index, 0, kLast);
}

/// "(Matrix3 (1.00 0.00 ... 1.00))", row by row.
template <std::size_t N>
std::string text(const char* className, const Elements<N>& m) {
  std::ostringstream os;
  os << std::fixed << std::showpoint << std::setprecision(2) << "(" << className << " (";
  const char* separator = "";
  for (const double(&row)[N] : m) {
    for (const double element : row) {
      os << separator << element;
      separator = " ";
    }
  }
  os << "))";
  return os.str();
}

}  // namespace matrix_elements
