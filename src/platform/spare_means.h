// Whether there is enough left of what the system lends a process.
#pragma once

namespace tradebill {

/// Whether some files could be opened now, and some memory be had. Libraries that take what they can't open for what
/// isn't there are asked only then. Allocates nothing that lasts.
[[nodiscard]] bool HasSpareMeans();

}  // namespace tradebill
