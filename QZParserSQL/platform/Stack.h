// How deep the present thread may still call.
#pragma once

namespace qz {

/// The lowest address that the stack of the calling thread should grow to: what lies below is kept free for leaf calls.
/// Where the thread runs on a stack that is not its own (a fiber), a fixed small budget below the caller is granted.
const char* StackLimit();

/// True when the calling thread's stack is nearly used up. For the ends of long recursions.
bool StackIsLow();

}  // namespace qz
