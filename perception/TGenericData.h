#pragma once

/// One named value, kept as text with a type tag. It stands ready beside the parser; nothing in
/// the player's working path uses it.

#include <ostream>
#include <string>

enum TDataType : int { TYPE_NUMBER = 0, TYPE_STRING = 1, TYPE_UNKNOWN = 2 };

class TGenericData {
 public:
  TDataType type = TYPE_UNKNOWN;
  std::string name;
  std::string value;  ///< numbers stand here with six decimals

  TGenericData() = default;
  TGenericData(const std::string& text);
  TGenericData(const double& number);
  TGenericData(const TGenericData&) = default;
  TGenericData(TGenericData&&) = default;
  /// Name, value and type.
  TGenericData& operator=(const TGenericData&) = default;
  TGenericData& operator=(TGenericData&&) = default;
  virtual ~TGenericData() = default;

  [[nodiscard]] TDataType getDataType() const { return type; }
  void setDataType(const TDataType& dataType) { type = dataType; }
  [[nodiscard]] const std::string& getName() const { return name; }
  void setName(const std::string& newName) { name = newName; }
  [[nodiscard]] const std::string& getValue() const { return value; }
  [[nodiscard]] const std::string& getAsString() const { return value; }
  /// -1000 for "NaN", else the first number in the text.
  [[nodiscard]] double getAsDouble() const;

  void setValue(const std::string& text);
  void setValue(const double& number);
  /// Value and type, not the name.
  void setValue(const TGenericData& other);

  /// Types and texts; the name isn't compared.
  bool operator==(const TGenericData& other) const;
  bool operator==(const std::string& text) const;
  bool operator==(const double& number) const;

  // The result takes name and type from the left side. Only numbers are computed with; a sum joins
  // strings, and any other operation on what is no number gives "0".
  TGenericData operator+(const TGenericData& other) const;
  TGenericData operator-(const TGenericData& other) const;
  TGenericData operator*(const TGenericData& other) const;
  TGenericData operator/(const TGenericData& other) const;
  TGenericData& operator+=(const TGenericData& other);
  TGenericData& operator-=(const TGenericData& other);
  TGenericData& operator*=(const TGenericData& other);
  TGenericData& operator/=(const TGenericData& other);
};

/// "('name', value type)"
std::ostream& operator<<(std::ostream& os, const TGenericData& data);
std::ostream& operator<<(std::ostream& os, const TGenericData* data);

/// A string record "NaN".
extern const TGenericData UnknownData;
