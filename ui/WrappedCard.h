#pragma once

#include <QImage>
#include <QString>

#include "wrapped/WrappedSummary.h"

namespace vantrelle {

// The recap drawn as a shareable card, the same for the view's "Save as image", the command line and
// the scripted-run hook. Needs a QGuiApplication (fonts), not a display.
namespace WrappedCard {

[[nodiscard]] QImage render(const WrappedSummary& summary);
// Writes the card as PNG, atomically; false (and logged) when it couldn't be written.
bool savePng(const WrappedSummary& summary, const QString& path);

}  // namespace WrappedCard

}  // namespace vantrelle
