#include "paint/freetype/font_use.h"

#include <exception>
#include <mutex>

#include "paint/freetype/font_faces.h"
#include "paint/freetype/scaled_face.h"

namespace tradebill {

CFontUse::CFontUse() : guard_(FontLock()), exceptions_(std::uncaught_exceptions()) {}

CFontUse::~CFontUse() {
    if (std::uncaught_exceptions() == exceptions_) return;
    ForgetScaledFaces();
    ForgetFaces();
}

}  // namespace tradebill
