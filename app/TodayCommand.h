#pragma once

// `vantrelle today [--json] [--calendars DIR...] [--now ISO] [--tz ZONE]`: prints the day's events in
// the Today view's order and exits. Needs no display. argv[1] is "today".
int runTodayCommand(int argc, char** argv);
