// The theme folder that the gallery shows.
#pragma once

#include <string>
#include <vector>

// The folder, with a backslash behind it. `argument` is the rest of the command line, perhaps in quotes; without one it
// is the default theme under the current directory, or beside the program where that has none.
std::string ChooseThemeFolder(std::string argument);

// The names of the theme's pictures that can't be read from the folder.
std::vector<std::string> FindUnreadablePictures(const std::string& folder);
