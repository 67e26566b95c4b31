#pragma once

/// An ordered list of named values. It owns copies of what it is given.

#include <memory>
#include <string>
#include <vector>

#include "perception/TGenericData.h"

class DataHolder {
 public:
  std::vector<std::unique_ptr<TGenericData>> data;  ///< in order of insertion

  DataHolder() = default;
  DataHolder(const DataHolder& other);
  DataHolder(DataHolder&&) = default;
  /// Deletes its own records first, so a holder assigned to itself ends up empty.
  DataHolder& operator=(const DataHolder& other);
  DataHolder& operator=(DataHolder&&) = default;
  ~DataHolder() = default;

  void clear();
  /// Appends a copy; names may repeat.
  void addData(const TGenericData& record);
  /// The first record of that name; a new one of unknown type when there is none.
  TGenericData* getData(const std::string& name);
  /// The first record of that name, or null.
  TGenericData* findData(const std::string& name);
  [[nodiscard]] const TGenericData* findData(const std::string& name) const;
};
