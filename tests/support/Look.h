// What a person has approved: the pictures of docs/pictures and tests/looks. Each build has them as PPM files in the
// folder tests/looks, from which its tests run. With QUORVANE_LOOKS_APPROVE the looks are written to that folder
// instead: see scripts/pictures.sh.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Surface.h"

struct Picture {
    int width = 0;
    std::vector<COLORREF> pixels{}; // row by row from the top

    bool operator==(const Picture&) const = default;
};

inline Picture LoadPicture(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::string word;
    Picture loaded;
    in >> word >> loaded.width >> word >> word;
    in.get();
    const std::vector<std::uint8_t> bytes(std::istreambuf_iterator<char>(in), {});
    for (std::size_t at = 0; at + 2 < bytes.size(); at += 3)
        loaded.pixels.push_back(RGB(bytes[at], bytes[at + 1], bytes[at + 2]));
    return loaded;
}

inline void SavePicture(const std::string& path, const Picture& picture) {
    std::ofstream out(path, std::ios::binary);
    out << "P6 " << picture.width << ' ' << picture.pixels.size() / static_cast<std::size_t>(picture.width) << " 255\n";
    for (const COLORREF pixel : picture.pixels)
        for (int shift = 0; shift < 24; shift += 8) out.put(static_cast<char>(pixel >> shift & 255));
    ASSERT_TRUE(out.flush().good()) << path;
}

inline Picture ApprovedLook(const std::string& name) {
    return LoadPicture("looks/" + name + ".ppm");
}

// One that differs is kept: the approved one, below it the present one, and then where they differ, if they are of one
// size.
inline void ExpectApproved(const std::string& name, const Picture& present, const Picture& approved) {
    if (const char* const folder = std::getenv("QUORVANE_LOOKS_APPROVE"))
        return SavePicture(std::string(folder) + "/" + name + ".ppm", present);
    if (present == approved) return;
    Picture all = present;
    if (approved.pixels.size() == present.pixels.size()) {
        all.pixels.insert(all.pixels.begin(), approved.pixels.begin(), approved.pixels.end());
        for (std::size_t i = 0; i < present.pixels.size(); ++i)
            all.pixels.push_back(approved.pixels[i] == present.pixels[i] ? 0 : RGB(255, 255, 255));
    }
    std::filesystem::create_directories("../looks");
    SavePicture("../looks/" + name + ".ppm", all);
    ADD_FAILURE() << name << " isn't as approved: see looks/" << name << ".ppm in the folder of the build";
}
