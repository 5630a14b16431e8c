#include "ShellEngine.h"

#include <string>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {

// Where qt_add_qml_module puts the module's files; Qt 6.5 and later look there by default.
constexpr auto kImportRoot = "qrc:/qt/qml";
constexpr auto kModuleRoot = "qrc:/qt/qml/Vantrelle/Shell/";

}  // namespace

ShellEngine::ShellEngine(QObject* parent) : QQmlEngine(parent) {
    addImportPath(QString::fromUtf8(kImportRoot));
}

QUrl ShellEngine::componentUrl(const QString& name) {
    return QUrl(QString::fromUtf8(kModuleRoot) + name + QStringLiteral(".qml"));
}

void ShellEngine::logMissing(const char* type) {
    DebugLog::write([&] { return std::string("overlay: qml singleton without a model: ") + type; });
}

}  // namespace vantrelle
