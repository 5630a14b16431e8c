#include "ShelfViewModel.h"

#include <QVariantMap>

#include "ShellEngine.h"
#include "files/FileUrl.h"

namespace vantrelle {

ShelfViewModel::ShelfViewModel(ShelfStore& store) : m_store(store) {
    m_connection = m_store.changed.connect([this] { refresh(); });
    refresh();
}

ShelfViewModel* ShelfViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::shelf);
}

QString ShelfViewModel::message() const {
    const auto& text = m_store.convertMessage();
    return text ? QString::fromStdString(*text) : QString();
}

QString ShelfViewModel::convertingId() const {
    const auto& id = m_store.converting();
    return id ? QString::fromStdString(*id) : QString();
}

void ShelfViewModel::toggleConversions(const QString& id) {
    const std::string key = id.toStdString();
    m_store.setConverting(m_store.converting() == key ? std::nullopt : std::optional(key));
}

void ShelfViewModel::convert(const QString& id, const QString& raw) {
    if (auto conversion = imageConversionNamed(raw.toStdString()))
        m_store.convert(id.toStdString(), *conversion);
}

void ShelfViewModel::addUrls(const QStringList& urls) {
    std::vector<std::string> list;
    for (const QString& url : urls) list.push_back(url.toStdString());
    m_store.addUrls(list);
}

void ShelfViewModel::refresh() {
    std::vector<ShelfItemListModel::Row> rows;
    for (const ShelfItem& item : m_store.items()) {
        const auto url = item.url();
        rows.push_back({QString::fromStdString(item.id), QString::fromStdString(item.name),
                        url ? QString::fromStdString(fileUrlFromPath(*url)) : QString(),
                        url && ImageConverter::isImage(*url), m_store.busy().contains(item.id)});
    }
    m_items.setRows(std::move(rows));
    QVariantList conversions;
    if (const auto& id = m_store.converting()) {
        for (ImageConversion conversion : m_store.conversionOptions(*id)) {
            conversions.append(QVariantMap{
                {QStringLiteral("raw"),
                 QString::fromUtf8(rawName(conversion).data(), static_cast<int>(rawName(conversion).size()))},
                {QStringLiteral("title"),
                 QString::fromUtf8(conversionTitle(conversion).data(),
                                   static_cast<int>(conversionTitle(conversion).size()))}});
        }
    }
    m_conversions = conversions;
    Q_EMIT changed();
}

}  // namespace vantrelle
