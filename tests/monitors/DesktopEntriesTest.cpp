#include <gtest/gtest.h>

#include "monitors/DesktopEntries.h"

namespace vantrelle {
namespace {

TEST(DesktopEntries, ReadsTheMainGroupOnlyAndHiddenLinksAndGarbageGiveNothing) {
    const auto entry =
        parseDesktopEntry("org.gnome.Terminal",
                          "# comment\n[Desktop Entry]\nName=Terminal\nType=Application\n"
                          "Exec=env GTK_THEME=dark gnome-terminal --window\nStartupWMClass=Gnome-terminal\n"
                          "[Desktop Action new-window]\nName=New Window\nExec=other\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, "Terminal");
    EXPECT_EQ(entry->program, "gnome-terminal");
    EXPECT_EQ(entry->wmClass, "Gnome-terminal");
    EXPECT_EQ(
        parseDesktopEntry("q", "[Desktop Entry]\nName=\"Q\"\nType=Application\nExec=\"/opt/my app/q\" %U\n")
            ->program,
        "/opt/my app/q");

    EXPECT_FALSE(parseDesktopEntry("a", "[Desktop Entry]\nName=A\nType=Application\nHidden=true\nExec=a\n"));
    EXPECT_FALSE(parseDesktopEntry("b", "[Desktop Entry]\nName=B\nType=Link\nURL=http://x\n"));
    EXPECT_FALSE(parseDesktopEntry("c", "\x01\x02 not an ini\n=\n[\n"));
}

TEST(DesktopEntries, MatchesByProgramThenByWindowClass) {
    const std::vector<DesktopEntry> entries{
        {"google-chrome", "Google Chrome", "/usr/bin/google-chrome-stable", "/opt/google/chrome/chrome", "",
         ""},
        {"code", "Visual Studio Code", "/usr/share/code/code", "/usr/share/code/code", "Code", ""},
        {"org.gnome.Nautilus", "Files", "nautilus", "/usr/bin/nautilus", "", ""},
    };
    const auto id = [&](std::string_view exe, std::string_view klass) {
        const DesktopEntry* entry = matchDesktopEntry(entries, exe, klass);
        return entry ? entry->id : std::string("none");
    };
    EXPECT_EQ(id("/opt/google/chrome/chrome", "Google-chrome"), "google-chrome") << "through the link";
    EXPECT_EQ(id("/usr/local/bin/nautilus", ""), "org.gnome.Nautilus") << "by file name";
    EXPECT_EQ(id("/usr/bin/electron", "code"), "code") << "by StartupWMClass, ignoring case";
    EXPECT_EQ(id("", "Nautilus"), "org.gnome.Nautilus") << "by the last part of the id";
    EXPECT_EQ(id("/usr/bin/xeyes", "XEyes"), "none");
}

}  // namespace
}  // namespace vantrelle
