// The settings of a report from an INI file, as a terminal would have them from its own configuration.
#pragma once

#include <tradebill/report_request.h>

#include <memory>
#include <string>

/// What the file says under [REQUEST]; all that isn't there is empty or 0. The record has more than 40 KB, so it isn't
/// kept on the stack. Without a window, events and callbacks: the host adds its own.
[[nodiscard]] std::unique_ptr<GenerateBillRequest> ReadRequestFile(const std::string& path);

void SetDates(GenerateBillRequest& request, const char* start, const char* end);

/// Full path of the page that the request makes below `root`.
[[nodiscard]] std::string PageOf(const GenerateBillRequest& request, const std::string& root);

/// Folder of this program: the module's root folder, as long as the host sets no other.
[[nodiscard]] std::string ProgramFolder();
