// Runs a work once for each of its allocations, in a process of its own in which that one fails.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

/// What a work has made, as text, and whether it has told that memory ran out.
struct Made {
    std::string text;
    bool isTold = false;
};

/// What is memory that is kept for later has to be given back by the work. std::bad_alloc tells, too.
using Work = std::function<Made()>;

/// Expects each run to tell, or to make the same as the one in which nothing fails, without a crash or a leak; but
/// where what failed was the recognizers' runtime asking, the process may have ended within it, or lost what it held.
/// QZ_FAULTS_STEP says how many allocations to go on from one that fails to the next; prints what came of them.
/// `expectAfter`, where given, is called after each run.
void FailEach(const Work& work, const std::function<void()>& expectAfter = nullptr);
