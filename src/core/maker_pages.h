// The maker's addresses, in one table, and how a page is opened.
//
// The maker's own server isn't part of the program: the addresses lie under a domain that is
// reserved for examples, and whoever runs a server of his own changes them here.
#pragma once

#include "core/program.h"

#include <string>

namespace corvel {

namespace maker {
inline constexpr const char* kWebSite = "http://www.corvel.example/";
inline constexpr const char* kFadeNews = "http://www.corvel.example/news/fading.html";
inline constexpr const char* kSupportAddress = "support@corvel.example";
}  // namespace maker

// In the user's own browser if that is his wish (UseExternalBrowser), else in the client. `form`
// may be nullptr.
void OpenPage(Program& program, const forms::Form* form, const std::string& page);

}  // namespace corvel
