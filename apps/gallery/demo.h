// The gallery's unattended demonstration, run without a display (or with --demo).
#pragma once

#include <QString>

namespace corvex::gallery {

class GalleryWindow;

/// Clicks, saves, changes and loads back the controls of window, printing each step to
/// standard output, then writes a screenshot of the window to screenshotPath and prints
/// "Screenshot written to <absolute path>". Returns 0 when every step did what it should.
int runDemo(GalleryWindow& window, const QString& screenshotPath);

}  // namespace corvex::gallery
