#include <gtest/gtest.h>

#include "launcher/FavoriteApps.h"

namespace vantrelle {
namespace {

using Ids = std::vector<std::string>;

TEST(FavoriteApps, ReadsGnomeFavoritesAndSkipsWhatIsNotADesktopFile) {
    const struct {
        const char* name;
        std::string text;
        Ids ids;
    } rows[] = {
        {"two apps",
         "['firefox.desktop', 'org.gnome.Nautilus.desktop']\n",
         {"firefox", "org.gnome.Nautilus"}},
        {"empty typed", "@as []\n", {}},
        {"double quotes and escapes", R"(["it\"s.desktop", 'a\'b.desktop'])", {"it\"s", "a'b"}},
        {"repeats once", "['a.desktop', 'a.desktop', 'b.desktop']", {"a", "b"}},
        {"not desktop files", "['a.txt', '.desktop', '../x.desktop', 'ok.desktop']", {"ok"}},
        {"cut off", "['a.desktop', 'b.desk", {"a"}},
        {"garbage", "No such schema “org.gnome.shell”", {}},
        {"empty", "", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(parseGnomeFavorites(row.text), row.ids);
    }
}

TEST(FavoriteApps, ReadsTheFirstKdeTaskManagerWithLaunchers) {
    const struct {
        const char* name;
        std::string text;
        Ids ids;
    } rows[] = {
        {"one panel",
         "[Containments][2][Applets][5][Configuration][General]\r\n"
         "launchers=applications:systemsettings.desktop,preferred://filemanager,"
         "file:///home/ada/app.desktop,applications:org.kde.konsole.desktop\r\n",
         {"systemsettings", "org.kde.konsole"}},
        {"empty first, second wins",
         "[A]\nlaunchers=\n[B]\nlaunchers=applications:firefox.desktop\n[C]\nlaunchers=applications:x."
         "desktop\n",
         {"firefox"}},
        {"other keys only", "[General]\nshowOnlyCurrentScreen=true\n", {}},
        {"odd items", "launchers=applications:,applications:a/b.desktop,,applications:ok.desktop", {"ok"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(parseKdeLaunchers(row.text), row.ids);
    }
}

}  // namespace
}  // namespace vantrelle
