#include "skin/RoundShading.h"

#include <cmath>

#include "pictures/ColorMath.h"

namespace {

constexpr double halfPi = 1.570796327;
constexpr double pi = 3.141592654;

constexpr double lightAngle = -2.356; // the upper left
constexpr double angleLimit = 3.1415;
constexpr double anglePeriod = 6.293;

// The eight mirror images of a point of the first octant, with y not above x.
void Mirror(std::vector<CirclePoint>& points, int centerX, int centerY, int x, int y) {
    const double theta = std::atan2(y, x);
    points.push_back({centerX + x, centerY + y, theta});
    points.push_back({centerX + y, centerY + x, halfPi - theta});
    points.push_back({centerX - y, centerY + x, theta + halfPi});
    points.push_back({centerX - x, centerY + y, pi - theta});
    points.push_back({centerX - x, centerY - y, theta - pi});
    points.push_back({centerX - y, centerY - x, -halfPi - theta});
    points.push_back({centerX + y, centerY - x, theta - halfPi});
    points.push_back({centerX + x, centerY - y, -theta});
}

} // namespace

std::vector<CirclePoint> CirclePoints(int centerX, int centerY, int radius, bool dotted) {
    std::vector<CirclePoint> points;
    int x = radius;
    int error = -radius;
    for (int y = 0; y <= x;) {
        if (!dotted || y % 2 == 0) Mirror(points, centerX, centerY, x, y);
        error += 2 * y + 1;
        ++y;
        if (error >= 0) {
            error += 2 - 2 * x;
            --x;
        }
    }
    return points;
}

std::uint32_t AngleColor(double angle, std::uint32_t light, std::uint32_t dark) {
    double turn = lightAngle - angle;
    if (turn < -angleLimit) {
        turn += anglePeriod;
    } else if (turn > angleLimit) {
        turn = anglePeriod - turn;
    }
    return SharedColor(light, dark, (std::cos(turn) + 1) * 0.5);
}
