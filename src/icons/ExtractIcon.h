// Zone icon references ("inetcpl.cpl#00004480") and the pictures they lead to.
#pragma once

#include <string>
#include <unordered_map>

#include "platform/Platform.h"
#include "ui/Controls.h"

struct Program;

namespace basMain {

// The program's own first icon, for zones that have none: program folder and name, ".exe#1".
std::string DefaultIconReference(platform::Platform& platform);

// Draws the icon that `reference` names (file, `separator`, number or name) into `box`: the image of `size` pixels.
// What cannot be drawn is no error: the box then shows the program's own icon.
void ExtractIcon(Program& program, const std::string& reference, const std::string& separator, int size,
                 ui::PictureBox& box);

}  // namespace basMain
