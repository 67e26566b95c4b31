#include "net/Exceptions.h"

#include <cstring>

namespace rcss::net {

const char* NetError::what() const noexcept {
  return std::strerror(error_);
}

}  // namespace rcss::net
