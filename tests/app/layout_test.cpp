// The layout rule of the main window.
#include "app/layout.h"

#include <gtest/gtest.h>

#include "app/main_window_design.h"

namespace varno {
namespace {

constexpr int ListWidth = 975;

TEST(Layout, FollowsTheWindow) {
    struct Row {
        int width;
        int height;
        MainLayout layout;
    };
    const MainLayout smallest{7320, 5430, 4175, 4110, 6435, 3525, 6365, 6955, 4100, 7410, 5595};
    const Row rows[] = {
        {MinimumWidth, MinimumHeight, smallest},
        {0, 0, smallest},
        {MinimumWidth - 1, MinimumHeight - 1, smallest},
        {10000, 8000, {9595, 7705, 6575, 6385, 8710, 5925, 8640, 9230, 6500, 9685, 7870}},
        {28800,
         16000,
         {28395, 26505, 14575, 25185, 27510, 13925, 27440, 28030, 14500, 28485, 26670}},
    };
    for (const Row& row : rows) {
        EXPECT_TRUE(LayOutMainWindow(row.width, row.height, ListWidth) == row.layout)
            << row.width << " x " << row.height;
    }
}

}  // namespace
}  // namespace varno
