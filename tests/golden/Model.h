// Models as text, as qzsql shows them.
#pragma once

#include <string>

/// The outline of a query's model, with an empty database.
std::string ModelOutline(const std::string& dialect, const std::string& sql);
