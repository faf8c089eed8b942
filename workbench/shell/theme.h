#pragma once

#include "hostkit/embedding/panel_window.h"

#include <QColor>

/// How the workbench looks: one dark, even palette in which the image is the brightest thing, and one spacing.
namespace workbench::theme {

inline constexpr QRgb surround = 0xff16181b; ///< around the image
inline constexpr QRgb panel = 0xff202428;    ///< tool column, bars, panels
inline constexpr QRgb raised = 0xff2b3036;   ///< buttons and fields
inline constexpr QRgb line = 0xff3a4048;
inline constexpr QRgb text = 0xffd6dade;
inline constexpr QRgb quietText = 0xff8f979f;
inline constexpr QRgb accent = 0xff4f83b6;
inline constexpr QRgb warning = 0xffe6a23c;

inline constexpr int spacing = 8;      ///< between things, pixels
inline constexpr int smallSpacing = 4; ///< inside a thing, pixels

/// The sizes that the View menu offers, percent.
inline constexpr int interfaceSizes[] = {100, 125, 150, 200};

/// Gives the application its style, palette and font.
void apply();

/// The same colours for the panels.
hostkit::Panel_Look panelLook();

/// The look of the lists of the database.
hostkit::Panel_Look listLook();

/// Scales the application's font and, from what they are when it is first called, the panels' dimensions. Every panel
/// has to be laid out afterwards.
void setInterfaceSize(int percent);

}
