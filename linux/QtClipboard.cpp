#include "QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "support/DebugLog.h"

namespace vantrelle {

void QtClipboard::setText(const std::string& text) {
    QClipboard* clipboard =
        qobject_cast<QGuiApplication*>(QCoreApplication::instance()) ? QGuiApplication::clipboard() : nullptr;
    if (!clipboard) {
        DebugLog::write("clipboard: no display, nothing copied");
        return;
    }
    clipboard->setText(QString::fromStdString(text));
}

}  // namespace vantrelle
