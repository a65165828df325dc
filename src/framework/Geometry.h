// Rectangles as plain numbers, for what is computed without a device context.
#pragma once

struct Box {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Box&) const = default;
    bool IsEmpty() const { return width <= 0 || height <= 0; }
};
