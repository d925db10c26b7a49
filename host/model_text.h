// A model as an outline.
#pragma once

#include <string>

#include "host/model_walk.h"

namespace qzsql {

/// Appends a line for each object with its plain members, Key=value, and below it its lists, maps and objects; the
/// Children of an item stand below it by themselves. Returns false where it was cut, see WalkModel.
bool AppendModelText(std::string& out, const Model& model);

}  // namespace qzsql
