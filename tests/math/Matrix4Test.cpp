#include "math/Matrix4.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <type_traits>

#include "math/Algebra.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

const Matrix4 kOneToSixteen(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
const Matrix3 kBlock(1, 2, 3, 5, 6, 7, 9, 10, 11);
/// A third of a turn: x to y, y to z, z to x.
const Quaternion kThirdOfTurn(0.5, 0.5, 0.5, 0.5);

TEST(Matrix4, IsAPlainValueOfSixteenNumbers) {
  EXPECT_FALSE(std::is_polymorphic_v<Matrix4>);
  EXPECT_EQ(sizeof(Matrix4), 16 * sizeof(double));
}

TEST(Matrix4, StartsAsTheIdentity) {
  EXPECT_TRUE(Matrix4() == Matrix4(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1));
  EXPECT_TRUE(Matrix4::identity == Matrix4());
  EXPECT_TRUE(Matrix4::zero == Matrix4(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
  Matrix4 matrix = kOneToSixteen;
  matrix.clearMatrix();
  EXPECT_TRUE(matrix == Matrix4::identity);
}

TEST(Matrix4, ElementsStandRowByRow) {
  const double rows[4][4] = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}};
  EXPECT_TRUE(Matrix4(rows) == kOneToSixteen);
  double expected = 1;
  Matrix4 written;
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) {
      EXPECT_EQ(kOneToSixteen[r][c], expected);
      written[r][c] = expected++;
    }
  }
  EXPECT_TRUE(written == kOneToSixteen);
}

TEST(Matrix4, ScalarAssignmentSetsAllElements) {
  Matrix4 matrix = kOneToSixteen;
  matrix = 2.5;
  EXPECT_TRUE(matrix == Matrix4::zero + 2.5);
}

TEST(Matrix4, EqualityIsExactOnEveryElement) {
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) {
      Matrix4 other = kOneToSixteen;
      EXPECT_TRUE(other == kOneToSixteen);
      EXPECT_FALSE(other != kOneToSixteen);
      other[r][c] = std::nextafter(other[r][c], 100);
      EXPECT_FALSE(other == kOneToSixteen);
      EXPECT_TRUE(other != kOneToSixteen);
    }
  }
}

TEST(Matrix4Index, OutOfRangeIsReportedAndStaysWithinTheMatrix) {
  for (const int index : {4, 17, -1}) {
    SCOPED_TRACE(index);
    Matrix4 matrix = kOneToSixteen;
    const Matrix4& constant = matrix;
    OutputCapture errors(OutputCapture::Stream::Error);
    const double* read = constant[index];
    double* written = matrix[index];
    const std::string once =
        "(Matrix4::operator []) index out of range: " + std::to_string(index) + "\n";
    EXPECT_EQ(errors.text(), once + once);
    const double* nearest = matrix.m[index < 0 ? 0 : 3];
    EXPECT_EQ(read, nearest);
    EXPECT_EQ(written, nearest);
  }
}

TEST(Matrix4Arithmetic, GoesElementByElement) {
  const Matrix4 sum = kOneToSixteen + kOneToSixteen;
  EXPECT_EQ(sum.m[3][2], 30);
  EXPECT_TRUE(sum == kOneToSixteen * 2);
  EXPECT_TRUE(sum - kOneToSixteen == kOneToSixteen);
  EXPECT_TRUE(sum / 2 == kOneToSixteen);
  EXPECT_EQ((kOneToSixteen + 1).m[0][3], 5);
  EXPECT_EQ((kOneToSixteen - 1).m[3][0], 12);
  Matrix4 matrix = kOneToSixteen;
  EXPECT_EQ(&(matrix += kOneToSixteen), &matrix);
  EXPECT_TRUE(matrix == sum);
  matrix -= kOneToSixteen;
  matrix *= 3;
  EXPECT_TRUE(matrix == kOneToSixteen * 3);
  matrix /= 3;
  matrix += 5;
  EXPECT_TRUE(matrix == kOneToSixteen + 5);
  matrix -= 5;
  EXPECT_TRUE(matrix == kOneToSixteen);
}

TEST(Matrix4Product, ThisStandsOnTheLeft) {
  const Matrix4 swapRows(0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1);
  EXPECT_TRUE(swapRows * kOneToSixteen ==
              Matrix4(5, 6, 7, 8, 1, 2, 3, 4, 9, 10, 11, 12, 13, 14, 15, 16));
  EXPECT_TRUE(kOneToSixteen * swapRows ==
              Matrix4(2, 1, 3, 4, 6, 5, 7, 8, 10, 9, 11, 12, 14, 13, 15, 16));
  Matrix4 matrix = swapRows;
  matrix *= matrix;
  EXPECT_TRUE(matrix == Matrix4::identity);
}

TEST(Matrix4Product, PointIsDividedByTheW) {
  const Matrix4 matrix(1, 0, 0, 1, 0, 1, 0, 2, 0, 0, 1, 3, 1, 0, 0, 2);
  EXPECT_THAT(matrix * VecPosition(2, 4, 6), IsPlace(0.75, 1.5, 2.25));  // (3, 6, 9) / 4
  // (2, 4, 6, 1) · matrix = (2 + 1, 4, 6, 2 + 8 + 18 + 2)
  EXPECT_THAT(VecPosition(2, 4, 6) * matrix, IsPlaceNear(0.1, 4.0 / 30, 0.2));
}

TEST(Matrix4Product, AffineTransformLeavesTheBottomRowOut) {
  const Matrix4 matrix(1, 0, 0, 1, 0, 1, 0, 2, 0, 0, 1, 3, 1, 0, 0, 2);
  EXPECT_THAT(matrix.transformAffine({2, 4, 6}), IsPlace(3, 6, 9));
}

TEST(Matrix4Determinant, IsOfTheUpperLeftBlockAlone) {
  Matrix4 matrix;
  matrix[3][3] = 2;
  EXPECT_EQ(matrix.getDeterminant(), 1);
  EXPECT_EQ(Matrix4(2, 0, 1, 77, 1, 3, 2, 77, 1, 1, 4, 77, 77, 77, 77, 77).getDeterminant(), 18);
}

TEST(Matrix4Inverse, IsOfTheWholeMatrix) {
  Matrix4 matrix;
  matrix[3][3] = 2;
  Matrix4 expected;
  expected[3][3] = 0.5;
  EXPECT_TRUE(matrix.getInverseMatrix() == expected);
  // Rows turned round: a permutation undoes itself backwards, with a block of determinant 0.
  const Matrix4 cycle(0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 1, 0, 0, 0);
  EXPECT_TRUE(cycle.getInverseMatrix() == cycle.getTranspose());
  EXPECT_TRUE(kOneToSixteen / cycle == kOneToSixteen * cycle.getTranspose());
  Matrix4 quotient = kOneToSixteen;
  quotient /= cycle;
  EXPECT_TRUE(quotient == kOneToSixteen * cycle.getTranspose());
}

TEST(Matrix4Inverse, SingularMatrixGivesNoNumbersWithoutAWord) {
  OutputCapture errors(OutputCapture::Stream::Error);
  const Matrix4 inverse = Matrix4::zero.getInverseMatrix();
  EXPECT_EQ(errors.text(), "");
  for (const auto& row : inverse.m) {
    for (const double element : row) {
      EXPECT_FALSE(std::isfinite(element));
    }
  }
}

TEST(Matrix4, TransposeExchangesRowsAndColumns) {
  EXPECT_TRUE(kOneToSixteen.getTranspose() ==
              Matrix4(1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16));
}

TEST(Matrix4, AffineHasTheExactBottomRow) {
  EXPECT_TRUE(Matrix4(9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 0, 0, 0, 1).isAffine());
  for (int c = 0; c < 4; ++c) {
    Matrix4 matrix;
    matrix[3][c] = std::nextafter(matrix[3][c], 2);
    EXPECT_FALSE(matrix.isAffine());
  }
}

TEST(Matrix4Parts, ScaleIsTheSameElementsAsTheTranslation) {
  Matrix4 matrix = Matrix4::getTranslationMatrix(1, 2, 3);
  EXPECT_THAT(matrix.getTranslation(), IsPlace(1, 2, 3));
  EXPECT_THAT(matrix.getScale(), IsPlace(1, 2, 3));
  matrix.setScale({4, 5, 6});
  EXPECT_THAT(matrix.getTranslation(), IsPlace(4, 5, 6));
  EXPECT_TRUE(matrix == Matrix4(1, 0, 0, 4, 0, 1, 0, 5, 0, 0, 1, 6, 0, 0, 0, 1));
  matrix.setTranslation({7, 8, 9});
  EXPECT_THAT(matrix.getScale(), IsPlace(7, 8, 9));
  EXPECT_THAT(Matrix4::getScaleMatrix(2, 3, 4).getScale(), IsPlace(0, 0, 0));
}

TEST(Matrix4Parts, ScaleMatrixHasTheDiagonal) {
  const Matrix4 expected(2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1);
  EXPECT_TRUE(Matrix4::getScaleMatrix(2, 3, 4) == expected);
  EXPECT_TRUE(Matrix4::getScaleMatrix(VecPosition(2, 3, 4)) == expected);
}

TEST(Matrix4Parts, TranslationMatrixHasTheLastColumn) {
  const Matrix4 expected(1, 0, 0, 2, 0, 1, 0, 3, 0, 0, 1, 4, 0, 0, 0, 1);
  EXPECT_TRUE(Matrix4::getTranslationMatrix(2, 3, 4) == expected);
  EXPECT_TRUE(Matrix4::getTranslationMatrix(VecPosition(2, 3, 4)) == expected);
}

TEST(Matrix4Block, GoesInWithTheIdentityAroundIt) {
  const Matrix4 expected(1, 2, 3, 0, 5, 6, 7, 0, 9, 10, 11, 0, 0, 0, 0, 1);
  EXPECT_TRUE(Matrix4(kBlock) == expected);
  Matrix4 matrix = kOneToSixteen;
  matrix.fromMatrix3(kBlock);
  EXPECT_TRUE(matrix == expected);
  EXPECT_TRUE(kOneToSixteen.toMatrix3() == kBlock);
}

TEST(Matrix4Block, AssignmentLeavesTheOtherElements) {
  Matrix4 matrix = kOneToSixteen;
  matrix = Matrix3::zero;
  EXPECT_TRUE(matrix == Matrix4(0, 0, 0, 4, 0, 0, 0, 8, 0, 0, 0, 12, 13, 14, 15, 16));
}

TEST(Matrix4Block, QuaternionGoesInAndComesOut) {
  const Matrix4 expected(0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1);
  EXPECT_TRUE(Matrix4(kThirdOfTurn) == expected);
  Matrix4 matrix = kOneToSixteen;
  matrix.fromQuaternion(kThirdOfTurn);
  EXPECT_TRUE(matrix == expected);
  EXPECT_TRUE(matrix.toQuaternion() == Quaternion(matrix));
  matrix.setTranslation({1, 2, 3});
  EXPECT_TRUE(matrix.toQuaternion() == Quaternion(Matrix3(0, 0, 1, 1, 0, 0, 0, 1, 0)));
}

TEST(Matrix4Transform, StretchesThenTurnsThenMoves) {
  const Matrix4 transform = Matrix4::createTransform({10, 20, 30}, {2, 3, 4}, kThirdOfTurn);
  EXPECT_TRUE(transform == Matrix4(0, 0, 4, 10, 2, 0, 0, 20, 0, 3, 0, 30, 0, 0, 0, 1));
  EXPECT_TRUE(transform.isAffine());
  EXPECT_THAT(transform * VecPosition(1, 1, 1), IsPlace(14, 22, 33));
}

TEST(Matrix4Text, HasTwoFixedDecimalsWhateverTheStream) {
  const std::string expected =
      "(Matrix4 (1.00 0.00 0.00 -2.50 0.00 1.00 0.00 3.46 0.00 0.00 1.00 0.00 0.00 0.00 0.00 "
      "1.00))";
  const Matrix4 matrix = Matrix4::getTranslationMatrix(-2.5, 3.456, 0);
  EXPECT_EQ(matrix.str(), expected);
  std::ostringstream os;
  os << std::scientific << matrix;
  EXPECT_EQ(os.str(), expected);
}

}  // namespace
