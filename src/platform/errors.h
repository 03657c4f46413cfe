#pragma once

#include <stdexcept>

namespace quillon {

/// A programming error: an index outside an array, a negative size, an absent path. Bad input never raises it.
class InvalidArgument : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

}  // namespace quillon
