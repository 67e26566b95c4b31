#include "perception/DataHolder.h"

#include <algorithm>
#include <utility>

DataHolder::DataHolder(const DataHolder& other) {
  *this = other;
}

DataHolder& DataHolder::operator=(const DataHolder& other) {
  clear();
  for (const auto& record : other.data) {
    addData(*record);
  }
  return *this;
}

void DataHolder::clear() {
  data.clear();
}

void DataHolder::addData(const TGenericData& record) {
  data.push_back(std::make_unique<TGenericData>(record));
}

TGenericData* DataHolder::getData(const std::string& name) {
  TGenericData* const found = findData(name);
  if (found != nullptr) {
    return found;
  }
  data.push_back(std::make_unique<TGenericData>());
  data.back()->setName(name);
  return data.back().get();
}

TGenericData* DataHolder::findData(const std::string& name) {
  return const_cast<TGenericData*>(std::as_const(*this).findData(name));
}

const TGenericData* DataHolder::findData(const std::string& name) const {
  const auto found = std::find_if(data.begin(), data.end(),
                                  [&](const auto& record) { return record->name == name; });
  return found == data.end() ? nullptr : found->get();
}
