#pragma once

/// Key codes of panels and widgets: characters are themselves, navigation keys 2048 plus the platform's code.
namespace hostkit::keys {

constexpr int backspace = 8;
constexpr int enter = 13;
constexpr int escape = 27;
constexpr int page_up = 2081;
constexpr int page_down = 2082;
constexpr int end = 2083;
constexpr int home = 2084;
constexpr int left = 2085;
constexpr int right = 2087;
constexpr int insert = 2093;
constexpr int delete_forward = 2094;

}
