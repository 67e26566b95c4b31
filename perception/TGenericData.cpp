#include "perception/TGenericData.h"

#include <functional>

#include "perception/SLangParser.h"

const TGenericData UnknownData{std::string("NaN")};

namespace {

constexpr double kUnknownNumber = -1000.0;

const char* nameOf(TDataType type) {
  switch (type) {
    case TYPE_NUMBER:
      return "number";
    case TYPE_STRING:
      return "string";
    default:
      return "unknown";
  }
}

/// Subtraction, multiplication, division: what is no number gives "0".
template <typename Operation>
TGenericData compute(const TGenericData& left, const TGenericData& right, Operation operation) {
  TGenericData result = left;
  if (left.type == TYPE_NUMBER) {
    result.setValue(operation(left.getAsDouble(), right.getAsDouble()));
  } else {
    result.value = "0";
  }
  return result;
}

}  // namespace

TGenericData::TGenericData(const std::string& text) : type(TYPE_STRING), value(text) {}

TGenericData::TGenericData(const double& number)
    : type(TYPE_NUMBER), value(std::to_string(number)) {}

double TGenericData::getAsDouble() const {
  return value == "NaN" ? kUnknownNumber : SLangParser::parseFirstDouble(value);
}

void TGenericData::setValue(const std::string& text) {
  value = text;
  type = TYPE_STRING;
}

void TGenericData::setValue(const double& number) {
  value = std::to_string(number);
  type = TYPE_NUMBER;
}

void TGenericData::setValue(const TGenericData& other) {
  value = other.value;
  type = other.type;
}

bool TGenericData::operator==(const TGenericData& other) const {
  return type == other.type && value == other.value;
}

bool TGenericData::operator==(const std::string& text) const {
  return type == TYPE_STRING && value == text;
}

bool TGenericData::operator==(const double& number) const {
  return type == TYPE_NUMBER && getAsDouble() == number;
}

TGenericData TGenericData::operator+(const TGenericData& other) const {
  TGenericData result = *this;
  if (type == TYPE_STRING) {
    result.value += other.value;
  } else if (type == TYPE_NUMBER) {
    result.setValue(getAsDouble() + other.getAsDouble());
  }
  return result;
}

TGenericData TGenericData::operator-(const TGenericData& other) const {
  return compute(*this, other, std::minus<>());
}

TGenericData TGenericData::operator*(const TGenericData& other) const {
  return compute(*this, other, std::multiplies<>());
}

TGenericData TGenericData::operator/(const TGenericData& other) const {
  return compute(*this, other, std::divides<>());
}

TGenericData& TGenericData::operator+=(const TGenericData& other) {
  return *this = *this + other;
}

TGenericData& TGenericData::operator-=(const TGenericData& other) {
  return *this = *this - other;
}

TGenericData& TGenericData::operator*=(const TGenericData& other) {
  return *this = *this * other;
}

TGenericData& TGenericData::operator/=(const TGenericData& other) {
  return *this = *this / other;
}

std::ostream& operator<<(std::ostream& os, const TGenericData& data) {
  return os << "('" << data.name << "', " << data.value << " " << nameOf(data.type) << ")";
}

std::ostream& operator<<(std::ostream& os, const TGenericData* data) {
  return os << *data;
}
