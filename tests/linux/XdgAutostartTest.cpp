#include <gtest/gtest.h>

#include "XdgAutostart.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

TEST(XdgAutostart, WritesAQuotedEntryAndRemovesIt) {
    testing::TempDir dir;
    XdgAutostart item(dir / "autostart/vantrelle.desktop", "/opt/My Apps/vantrelle");
    EXPECT_TRUE(item.setEnabled(true));
    EXPECT_TRUE(item.isEnabled());
    const auto text = dir.read("autostart/vantrelle.desktop");
    EXPECT_NE(text.find("[Desktop Entry]\n"), std::string::npos);
    EXPECT_NE(text.find("Exec=\"/opt/My Apps/vantrelle\"\n"), std::string::npos);
    EXPECT_TRUE(item.setEnabled(false));
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(item.setEnabled(false)) << "removing what is not there is fine";
}

}  // namespace
}  // namespace vantrelle
