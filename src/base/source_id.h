// What the library is built from, for reports of defects. The source is made by the build (cmake/source_id.cmake).
#pragma once

namespace tradebill {

/// 16 hexadecimal digits of the SHA-256 of all sources.
extern const char* const kSourceId;

}  // namespace tradebill
