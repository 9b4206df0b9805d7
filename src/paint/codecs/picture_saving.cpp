#include <string>
#include <string_view>

#include "paint/bitmap.h"
#include "paint/picture_file.h"
#include "platform/file.h"

namespace tradebill {

bool SavePictureFile(std::string_view content, const std::string& path) {
    if (content.empty()) return false;
    return SaveInOneStep(path, [content](CFile& file) { return file.Write(content); });
}

bool SaveJpeg(const CBitmap& bitmap, const std::string& path, int quality) {
    return SavePictureFile(EncodeJpeg(bitmap, quality), path);
}

bool SavePng(const CBitmap& bitmap, const std::string& path) {
    return SavePictureFile(EncodePng(bitmap), path);
}

}  // namespace tradebill
