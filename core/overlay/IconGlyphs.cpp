#include "overlay/IconGlyphs.h"

#include <array>
#include <utility>

namespace vantrelle {

namespace {

// Symbol name → Material Icons code point (name in the font).
constexpr std::array<std::pair<std::string_view, char32_t>, 60> kGlyphs{{
    {"square.grid.2x2", 0xe9b0},                     // grid_view
    {"calendar", 0xe935},                            // calendar_today
    {"checklist", 0xe6b1},                           // checklist
    {"bell", 0xe7f4},                                // notifications
    {"note.text", 0xf1fc},                           // sticky_note_2
    {"timer", 0xe425},                               // timer
    {"sparkles", 0xe65f},                            // auto_awesome
    {"server.rack", 0xe875},                         // dns
    {"menubar.rectangle", 0xe069},                   // web_asset
    {"plus.forwardslash.minus", 0xea5f},             // calculate
    {"music.note", 0xe405},                          // music_note
    {"tray.full", 0xe156},                           // inbox
    {"hourglass", 0xe88b},                           // hourglass_empty
    {"chart.bar", 0xe26b},                           // bar_chart
    {"camera", 0xe412},                              // photo_camera
    {"gamecontroller.fill", 0xea28},                 // sports_esports
    {"lifepreserver", 0xef73},                       // support
    {"briefcase.fill", 0xe8f9},                      // work
    {"sunrise", 0xe1c6},                             // wb_twilight
    {"checkmark.circle", 0xe92d},                    // check_circle_outline
    {"switch.2", 0xe9f6},                            // toggle_on
    {"chart.bar.fill", 0xe24b},                      // insert_chart
    {"video.fill", 0xe04b},                          // videocam
    {"battery.25percent", 0xebe0},                   // battery_2_bar
    {"battery.100percent", 0xe1a4},                  // battery_full
    {"bolt.fill", 0xea0b},                           // bolt
    {"arrow.down.circle.fill", 0xf181},              // arrow_circle_down
    {"arrow.down.app.fill", 0xf090},                 // download
    {"checkmark.circle.fill", 0xe86c},               // check_circle
    {"brain.head.profile", 0xea4a},                  // psychology
    {"cup.and.saucer.fill", 0xefef},                 // coffee
    {"stopwatch.fill", 0xe01b},                      // av_timer
    {"gearshape.fill", 0xe8b8},                      // settings
    {"arrow.down.right.and.arrow.up.left", 0xf1cf},  // close_fullscreen
    {"rectangle.topthird.inset.filled", 0xe069},     // web_asset
    {"agent", 0xf06c},                               // smart_toy, the agent mark
    {"questionmark", 0xe8fd},                        // help_outline
    {"slider.horizontal.3", 0xe429},                 // tune
    {"square.grid.3x3", 0xe9b0},                     // grid_view
    {"arrow.clockwise", 0xe5d5},                     // refresh
    {"play.fill", 0xe037},                           // play_arrow
    {"pause.fill", 0xe034},                          // pause
    {"forward.fill", 0xe044},                        // skip_next
    {"backward.fill", 0xe045},                       // skip_previous
    {"arrow.up.forward.app", 0xe89e},                // open_in_new
    {"ellipsis", 0xe5d3},                            // more_horiz
    {"folder", 0xe2c7},                              // folder
    {"envelope", 0xe158},                            // mail
    {"video.slash", 0xe04c},                         // videocam_off
    {"moon.fill", 0xe51c},                           // dark_mode
    {"speaker.slash.fill", 0xe04f},                  // volume_off
    {"camera.viewfinder", 0xe3c2},                   // crop_free
    {"photo.badge.arrow.down.fill", 0xe171},         // save_alt
    {"display", 0xe30c},                             // desktop_windows
    {"lock.fill", 0xe897},                           // lock
    {"eye.fill", 0xe8f4},                            // visibility
    {"dock.rectangle", 0xe30e},                      // dock
    {"menubar.dock.rectangle", 0xe30c},              // desktop_windows
    {"eject.fill", 0xe8fb},                          // eject
    {"trash.fill", 0xe872},                          // delete
}};

}  // namespace

bool hasIconGlyph(std::string_view symbol) {
    for (const auto& [name, glyph] : kGlyphs) {
        if (name == symbol) return true;
    }
    return false;
}

char32_t iconGlyph(std::string_view symbol) {
    for (const auto& [name, glyph] : kGlyphs) {
        if (name == symbol) return glyph;
    }
    return 0xe8fd;
}

}  // namespace vantrelle
