// What the process answers with.
#pragma once

namespace qzsql {

/// The highest that applies wins.
enum ExitCode : int {
    kDone = 0,
    kNotClean = 1,  // check: an input is not clean; anywhere: nested too deep; batch: a record failed
    kWrongUsage = 2,
    kUnreadable = 3,  // an input can't be read or decoded, or the output can't be written
    kOutOfMemory = 4,
};

}  // namespace qzsql
