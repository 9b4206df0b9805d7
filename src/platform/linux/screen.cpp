#include "platform/screen.h"

namespace tradebill {

int DisplayWidth() {
    return 1920;
}

}  // namespace tradebill
