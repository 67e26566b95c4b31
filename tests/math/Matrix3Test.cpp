#include "math/Matrix3.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <type_traits>

#include "math/Algebra.h"
#include "math/Geometry.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

const Matrix3 kOneToNine(1, 2, 3, 4, 5, 6, 7, 8, 9);
const Matrix3 kRegular(2, 0, 1, 1, 3, 2, 1, 1, 4);  // determinant 2 (12 - 2) + (1 - 3) = 18

TEST(Matrix3, IsAPlainValueOfNineNumbers) {
  EXPECT_FALSE(std::is_polymorphic_v<Matrix3>);
  EXPECT_EQ(sizeof(Matrix3), 9 * sizeof(double));
}

TEST(Matrix3, StartsAsTheIdentity) {
  EXPECT_TRUE(Matrix3() == Matrix3(1, 0, 0, 0, 1, 0, 0, 0, 1));
  EXPECT_TRUE(Matrix3::identity == Matrix3());
  EXPECT_TRUE(Matrix3::zero == Matrix3(0, 0, 0, 0, 0, 0, 0, 0, 0));
  Matrix3 matrix = kOneToNine;
  matrix.clearMatrix();
  EXPECT_TRUE(matrix == Matrix3::identity);
}

TEST(Matrix3, ElementsStandRowByRow) {
  const double rows[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
  EXPECT_TRUE(Matrix3(rows) == kOneToNine);
  double expected = 1;
  Matrix3 written;
  for (int r = 0; r < 3; ++r) {
    for (int c = 0; c < 3; ++c) {
      EXPECT_EQ(kOneToNine[r][c], expected);
      written[r][c] = expected++;
    }
  }
  EXPECT_TRUE(written == kOneToNine);
}

TEST(Matrix3, TakesTheUpperLeftBlockOfALargerOne) {
  EXPECT_TRUE(Matrix3(Matrix4(1, 2, 3, 77, 4, 5, 6, 77, 7, 8, 9, 77, 77, 77, 77, 77)) ==
              kOneToNine);
}

TEST(Matrix3, TakesTheRotationOfAQuaternion) {
  // A third of a turn about the space diagonal: x to y, y to z, z to x.
  EXPECT_TRUE(Matrix3(Quaternion(0.5, 0.5, 0.5, 0.5)) == Matrix3(0, 0, 1, 1, 0, 0, 0, 1, 0));
}

TEST(Matrix3, ScalarAssignmentSetsAllElements) {
  Matrix3 matrix = kOneToNine;
  Matrix3& result = (matrix = 2.5);
  EXPECT_EQ(&result, &matrix);
  EXPECT_TRUE(matrix == Matrix3(2.5, 2.5, 2.5, 2.5, 2.5, 2.5, 2.5, 2.5, 2.5));
  matrix = kOneToNine;
  matrix = matrix[1][1];
  EXPECT_TRUE(matrix == Matrix3(5, 5, 5, 5, 5, 5, 5, 5, 5));
}

TEST(Matrix3, EqualityIsExactOnEveryElement) {
  for (int r = 0; r < 3; ++r) {
    for (int c = 0; c < 3; ++c) {
      Matrix3 other = kOneToNine;
      EXPECT_TRUE(other == kOneToNine);
      EXPECT_FALSE(other != kOneToNine);
      other[r][c] = std::nextafter(other[r][c], 100);
      EXPECT_FALSE(other == kOneToNine);
      EXPECT_TRUE(other != kOneToNine);
      other[r][c] = std::nan("");
      EXPECT_FALSE(other == other);
    }
  }
}

TEST(Matrix3Index, OutOfRangeIsReportedAndStaysWithinTheMatrix) {
  for (const int index : {3, 17, -1}) {
    SCOPED_TRACE(index);
    Matrix3 matrix = kOneToNine;
    const Matrix3& constant = matrix;
    OutputCapture errors(OutputCapture::Stream::Error);
    const double* read = constant[index];
    double* written = matrix[index];
    const std::string once =
        "(Matrix3::operator []) index out of range: " + std::to_string(index) + "\n";
    EXPECT_EQ(errors.text(), once + once);
    const double* nearest = matrix.m[index < 0 ? 0 : 2];
    EXPECT_EQ(read, nearest);
    EXPECT_EQ(written, nearest);
  }
}

TEST(Matrix3Column, IsReadAndWritten) {
  EXPECT_THAT(kOneToNine.getColoumn(0), IsPlace(1, 4, 7));
  EXPECT_THAT(kOneToNine.getColoumn(2), IsPlace(3, 6, 9));
  Matrix3 matrix = kOneToNine;
  matrix.setColoumn(1, {10, 20, 30});
  EXPECT_TRUE(matrix == Matrix3(1, 10, 3, 4, 20, 6, 7, 30, 9));
}

TEST(Matrix3Column, OutOfBoundsIsReportedAndNothingIsWritten) {
  for (const int index : {3, -1}) {
    Matrix3 matrix = kOneToNine;
    OutputCapture errors(OutputCapture::Stream::Error);
    const VecPosition column = matrix.getColoumn(index);
    matrix.setColoumn(index, {10, 20, 30});
    const std::string end = " Index out of bounds: " + std::to_string(index) + "\n";
    EXPECT_EQ(errors.text(), "(Matrix3::getColoumn)" + end + "(Matrix3::setColoumn)" + end);
    EXPECT_EQ(column, UnknownPosition);
    EXPECT_TRUE(matrix == kOneToNine);
  }
}

TEST(Matrix3Arithmetic, GoesElementByElement) {
  const Matrix3 ten(10, 10, 10, 20, 20, 20, 30, 30, 30);
  EXPECT_TRUE(kOneToNine + ten == Matrix3(11, 12, 13, 24, 25, 26, 37, 38, 39));
  EXPECT_TRUE(ten - kOneToNine == Matrix3(9, 8, 7, 16, 15, 14, 23, 22, 21));
  EXPECT_TRUE(kOneToNine + 1 == Matrix3(2, 3, 4, 5, 6, 7, 8, 9, 10));
  EXPECT_TRUE(kOneToNine - 1 == Matrix3(0, 1, 2, 3, 4, 5, 6, 7, 8));
  EXPECT_TRUE(kOneToNine * 2 == Matrix3(2, 4, 6, 8, 10, 12, 14, 16, 18));
  EXPECT_TRUE(kOneToNine / 2 == Matrix3(0.5, 1, 1.5, 2, 2.5, 3, 3.5, 4, 4.5));
}

TEST(Matrix3Arithmetic, CompoundFormsChangeTheObject) {
  Matrix3 matrix = kOneToNine;
  EXPECT_EQ(&(matrix += kOneToNine), &matrix);
  EXPECT_TRUE(matrix == kOneToNine * 2);
  matrix -= kOneToNine;
  EXPECT_TRUE(matrix == kOneToNine);
  matrix += 3;
  EXPECT_TRUE(matrix == kOneToNine + 3);
  matrix -= 3;
  matrix *= 3;
  EXPECT_TRUE(matrix == kOneToNine * 3);
  matrix /= 3;
  EXPECT_TRUE(matrix == kOneToNine);
}

TEST(Matrix3Arithmetic, OwnElementMayBeTheScalar) {
  Matrix3 matrix = kOneToNine;
  matrix += matrix[0][1];
  EXPECT_TRUE(matrix == kOneToNine + 2);
  matrix = kOneToNine;
  matrix -= matrix;
  EXPECT_TRUE(matrix == Matrix3::zero);
}

TEST(Matrix3Product, ThisStandsOnTheLeft) {
  const Matrix3 swapRows(0, 1, 0, 1, 0, 0, 0, 0, 1);
  EXPECT_TRUE(swapRows * kOneToNine == Matrix3(4, 5, 6, 1, 2, 3, 7, 8, 9));
  EXPECT_TRUE(kOneToNine * swapRows == Matrix3(2, 1, 3, 5, 4, 6, 8, 7, 9));
  EXPECT_TRUE(kOneToNine * kOneToNine == Matrix3(30, 36, 42, 66, 81, 96, 102, 126, 150));
  Matrix3 matrix = kOneToNine;
  matrix *= matrix;
  EXPECT_TRUE(matrix == Matrix3(30, 36, 42, 66, 81, 96, 102, 126, 150));
}

TEST(Matrix3Product, VectorsAreColumnsOnTheRightAndRowsOnTheLeft) {
  EXPECT_THAT(kOneToNine * VecPosition(1, 10, 100), IsPlace(321, 654, 987));
  EXPECT_THAT(VecPosition(1, 10, 100) * kOneToNine, IsPlace(741, 852, 963));
}

TEST(Matrix3Inverse, DeterminantAndTranspose) {
  EXPECT_EQ(Matrix3::identity.getDeterminant(), 1);
  EXPECT_EQ(kRegular.getDeterminant(), 18);
  EXPECT_EQ(kOneToNine.getDeterminant(), 0);
  EXPECT_TRUE(kOneToNine.getTranspose() == Matrix3(1, 4, 7, 2, 5, 8, 3, 6, 9));
}

TEST(Matrix3Inverse, IsTheCofactorsOverTheDeterminant) {
  const Matrix3 expected = Matrix3(10, 1, -3, -2, 7, -3, -2, -2, 6) / 18;
  EXPECT_TRUE(kRegular.getInverseMatrix() == expected);
  EXPECT_TRUE(kOneToNine / kRegular == kOneToNine * expected);
  Matrix3 matrix = kOneToNine;
  matrix /= kRegular;
  EXPECT_TRUE(matrix == kOneToNine * expected);
}

TEST(Matrix3Inverse, ZeroIsReportedAndHasNone) {
  OutputCapture errors(OutputCapture::Stream::Error);
  const Matrix3 inverse = Matrix3::zero.getInverseMatrix();
  EXPECT_EQ(errors.text(), "(Matrix3::inverseMatrix) Determinant is zero\n");
  for (const auto& row : inverse.m) {
    for (const double element : row) {
      EXPECT_FALSE(std::isfinite(element));
    }
  }
}

TEST(Matrix3Inverse, DeterminantNextToNothingIsReportedAndDividedBy) {
  const Matrix3 small(0.01, 0, 0, 0, 0.1, 0, 0, 0, 0.05);  // 0.00005
  OutputCapture errors(OutputCapture::Stream::Error);
  const Matrix3 inverse = small.getInverseMatrix();
  EXPECT_EQ(errors.text(), "(Matrix3::inverseMatrix) Determinant is zero\n");
  EXPECT_NEAR(inverse.m[0][0], 100, 1e-9);
  EXPECT_NEAR(inverse.m[1][1], 10, 1e-9);
  EXPECT_NEAR(inverse.m[2][2], 20, 1e-9);
}

TEST(Matrix3Inverse, NegativeDeterminantNextToNothingIsReportedToo) {
  OutputCapture errors(OutputCapture::Stream::Error);
  const Matrix3 inverse = Matrix3(-0.00005, 0, 0, 0, 1, 0, 0, 0, 1).getInverseMatrix();
  EXPECT_EQ(errors.text(), "(Matrix3::inverseMatrix) Determinant is zero\n");
  EXPECT_NEAR(inverse.m[0][0], -20000, 1e-9);
}

TEST(Matrix3Inverse, DeterminantOfTheToleranceItselfGoesUnreported) {
  OutputCapture errors(OutputCapture::Stream::Error);
  const Matrix3 inverse = Matrix3(EPSILON, 0, 0, 0, 1, 0, 0, 0, 1).getInverseMatrix();
  EXPECT_EQ(errors.text(), "");
  EXPECT_NEAR(inverse.m[0][0], 10000, 1e-9);
}

TEST(Matrix3Inverse, NegativeDeterminantGoesUnreported) {
  OutputCapture errors(OutputCapture::Stream::Error);
  EXPECT_TRUE(Matrix3(-1, 0, 0, 0, 1, 0, 0, 0, 1).getInverseMatrix() ==
              Matrix3(-1, 0, 0, 0, 1, 0, 0, 0, 1));
  EXPECT_EQ(errors.text(), "");
}

TEST(Matrix3OrthoNormalize, KeepsTheDirectionOfTheFirstColumn) {
  Matrix3 matrix(3, 1, 1, 0, 2, 1, 0, 0, -5);  // columns (3, 0, 0), (1, 2, 0), (1, 1, -5)
  matrix.orthoNormalize();
  EXPECT_TRUE(matrix == Matrix3(1, 0, 0, 0, 1, 0, 0, 0, -1));
}

TEST(Matrix3OrthoNormalize, ShortColumnsAreScaledToo) {
  Matrix3 matrix = Matrix3::identity * 1e-9;
  matrix.orthoNormalize();
  EXPECT_DOUBLE_EQ(matrix.m[0][0], 1);
  EXPECT_DOUBLE_EQ(matrix.m[2][2], 1);
}

TEST(Matrix3OrthoNormalize, ColumnWithoutLengthIsNotGuarded) {
  Matrix3 matrix(0, 1, 0, 0, 0, 1, 0, 0, 0);
  matrix.orthoNormalize();
  EXPECT_TRUE(std::isnan(matrix.m[0][0]));
  EXPECT_TRUE(std::isnan(matrix.m[2][2]));
}

TEST(Matrix3Text, HasTwoFixedDecimalsWhateverTheStream) {
  const Matrix3 matrix(1, -2.5, 3.456, 0, 0, 0, 100, 0.001, -1);
  const std::string expected = "(Matrix3 (1.00 -2.50 3.46 0.00 0.00 0.00 100.00 0.00 -1.00))";
  EXPECT_EQ(matrix.str(), expected);
  std::ostringstream os;
  os << std::scientific << matrix;
  EXPECT_EQ(os.str(), expected);
}

}  // namespace
