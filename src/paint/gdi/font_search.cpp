#include "paint/font_search.h"

namespace tradebill {

struct CFontSearch::Worker {};

CFontSearch::CFontSearch() = default;  // the system keeps its fonts ready
CFontSearch::~CFontSearch() = default;

}  // namespace tradebill
