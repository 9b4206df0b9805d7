#include <optional>
#include "paint/picture.h"
#include "paint/picture_file.h"
#include "platform/embedded_picture.h"

namespace tradebill {

std::optional<CPicture> LoadPngResource(int id) {
    return DecodePng(EmbeddedPicture(id));
}

}  // namespace tradebill
