#include "shell/memory_surface.h"

#include <gtest/gtest.h>

namespace brennik {
namespace {

TEST(MemorySurface, OpensLikeTheForm) {
    MemorySurface surface;
    EXPECT_EQ(surface.State({Ctl::cmdHelpTip}).caption, "Help Tip");
    EXPECT_EQ(surface.State({Ctl::Line1}).x1, 7230);
    EXPECT_EQ(surface.State({Ctl::Line4}).x1, 7200);
    EXPECT_EQ(surface.State({Ctl::txtL, 40}).back, White);
    EXPECT_EQ(surface.State({Ctl::txtL, 40}).fore, Black);
    EXPECT_FALSE(surface.Focus().has_value());
}

TEST(MemorySurface, SelectingOneOptionClearsTheOther) {
    MemorySurface surface;
    surface.SetValue({Ctl::Option1}, true);
    surface.SetValue({Ctl::Option2}, true);
    EXPECT_FALSE(surface.Value({Ctl::Option1}));
    EXPECT_TRUE(surface.Value({Ctl::Option2}));
    surface.SetValue({Ctl::Check1}, true);
    EXPECT_TRUE(surface.Value({Ctl::Check1}));
    EXPECT_TRUE(surface.Value({Ctl::Option2}));
}

TEST(MemorySurface, RecordsEveryOperationInOrder) {
    MemorySurface surface;
    surface.SetText({Ctl::txtLong}, " Done !.");
    surface.SetBackColor({Ctl::txtLong}, Blue);
    surface.Refresh({Ctl::txtLong});
    surface.SetFocus({Ctl::txtL, 3});
    const auto& events = surface.Events();
    ASSERT_EQ(events.size(), 4u);
    EXPECT_EQ(events[0].op, SurfaceOp::SetText);
    EXPECT_EQ(events[0].text, " Done !.");
    EXPECT_EQ(events[1].colour, Blue);
    EXPECT_EQ(events[2].op, SurfaceOp::Refresh);
    EXPECT_EQ(events[3].control, (Control{Ctl::txtL, 3}));
    EXPECT_EQ(surface.Focus(), (Control{Ctl::txtL, 3}));
    EXPECT_EQ(ControlName(events[3].control), "txtL(3)");

    surface.SetRecording(false);
    surface.SetText({Ctl::Text3}, "x");
    EXPECT_EQ(surface.Events().size(), 4u);
    EXPECT_EQ(surface.Text({Ctl::Text3}), "x");
}

TEST(MemorySurface, RefusesRowsBeyondTheForm) {
    MemorySurface surface;
    EXPECT_THROW(surface.SetText({Ctl::txtL, 41}, "1"), std::out_of_range);
}

}  // namespace
}  // namespace brennik
