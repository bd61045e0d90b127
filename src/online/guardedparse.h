#pragma once

// Gumbo's parse of a page, held to a time and a memory budget. Gumbo offers
// no way to stop a parse, so it runs on a thread of its own: when the
// deadline has passed, a signal to that thread jumps back to where the parse
// began, over gumbo's frames, and the parse is given up; so does an
// allocation beyond the budget. That leaves nothing behind as long as all
// that gumbo allocates comes from the caller's allocator and is freed with
// it (an arena), which is what the caller must provide. The thread's stack
// is deep enough for gumbo's own recursion (it frees the tree under a body
// that a frameset replaces, one call a level) on any tree the memory budget
// holds.

#include <QByteArray>

#include <cstddef>

struct GumboInternalOptions;
struct GumboInternalOutput;

namespace guardedparse {

// The output, or nullptr when the parse was given up. `options` keep their
// allocator; it is called on the parse's thread.
GumboInternalOutput* parse(const GumboInternalOptions& options, const QByteArray& utf8, int milliseconds,
                           size_t memory);

} // namespace guardedparse
