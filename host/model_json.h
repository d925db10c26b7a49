// A model as JSON.
#pragma once

#include <string>

#include "host/model_walk.h"

namespace qzsql {

/// Appends one object, without a newline. Returns false where it was cut, see WalkModel.
bool AppendModelJson(std::string& out, const Model& model);

}  // namespace qzsql
