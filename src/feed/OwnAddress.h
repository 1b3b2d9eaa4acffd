#pragma once

#include <string>

#include "xml/XmlDom.h"

namespace feedloom {

// Where the feed whose document element is `root` says that it is to be had: its link "self" (RFC
// 4287, 4.2.7.2), or else that of its home page. As it is written, in UTF-8; empty when the
// document is no feed or has neither. Pure; any thread.
std::string OwnAddress(const XmlElement& root);

}  // namespace feedloom
