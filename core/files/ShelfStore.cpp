#include "files/ShelfStore.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "files/FileUrl.h"
#include "support/Base64.h"
#include "support/DebugLog.h"
#include "support/JsonDepth.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

// The file stores dates as seconds since 2001-01-01 00:00:00 UTC.
constexpr double kReferenceDate = 978'307'200.0;

// "." and ".." folded away and no trailing slash, so one file has one spelling.
std::string standardised(const fs::path& file) {
    fs::path normal = file.lexically_normal();
    if (!normal.has_filename() && normal != normal.root_path()) normal = normal.parent_path();
    return normal.string();
}

std::optional<ShelfItem> itemFromJson(const nlohmann::json& value) {
    if (!value.is_object()) return std::nullopt;
    const auto id = value.find("id");
    const auto bookmark = value.find("bookmark");
    const auto name = value.find("name");
    const auto addedAt = value.find("addedAt");
    if (id == value.end() || !id->is_string() || bookmark == value.end() || !bookmark->is_string() ||
        name == value.end() || !name->is_string() || addedAt == value.end() || !addedAt->is_number())
        return std::nullopt;
    auto bytes = base64Decode(bookmark->get<std::string>());
    if (!bytes) return std::nullopt;
    return ShelfItem{id->get<std::string>(), std::move(*bytes), name->get<std::string>(),
                     Date{addedAt->get<double>() + kReferenceDate}};
}

}  // namespace

std::string formatFileSize(std::uintmax_t bytes) {
    if (bytes == 0) return "Zero KB";
    if (bytes < 1000) return fmt::format("{} byte{}", bytes, bytes == 1 ? "" : "s");
    static constexpr std::array<const char*, 5> kUnits{"KB", "MB", "GB", "TB", "PB"};
    double value = static_cast<double>(bytes) / 1000.0;
    std::size_t unit = 0;
    while (value >= 999.95 && unit + 1 < kUnits.size()) {
        value /= 1000.0;
        ++unit;
    }
    // Kilobytes whole, larger units with one decimal, as file managers show them.
    if (unit == 0) return fmt::format("{:.0f} {}", value, kUnits[unit]);
    return fmt::format("{:.1f} {}", value, kUnits[unit]);
}

fs::path ShelfStore::demoFile() {
    std::error_code error;
    fs::path temporary = fs::temp_directory_path(error);
    if (error) temporary = "/tmp";
    return temporary / "vantrelle-demo-shelf.json";
}

ShelfStore::ShelfStore(Dependencies deps)
    : m_deps(std::move(deps)),
      m_file(m_deps.demoMode ? demoFile() : m_deps.file, "shelf", m_deps.clock, /*readOnly=*/m_deps.demoMode),
      m_queue(m_deps.queues.make("shelf")) {
    if (m_deps.demoMode) {
        add(m_deps.demoFiles);
        return;
    }
    load();
}

ShelfStore::~ShelfStore() {
    *m_alive = false;
}

const ShelfItem* ShelfStore::item(const std::string& id) const {
    const auto it =
        std::find_if(m_items.begin(), m_items.end(), [&](const ShelfItem& i) { return i.id == id; });
    return it == m_items.end() ? nullptr : &*it;
}

void ShelfStore::load() {
    const auto text = m_file.read();
    if (text && !parse(*text)) m_file.setAside("it isn't a shelf");
}

// All or nothing: one malformed item makes the file unusable, and it is moved aside whole.
bool ShelfStore::parse(const std::string& text) {
    if (exceedsJsonDepth(text, kMaxJsonDepth)) return false;
    const auto json = nlohmann::json::parse(text, nullptr, false);
    if (json.is_discarded() || !json.is_array()) return false;
    std::vector<ShelfItem> items;
    for (const auto& value : json) {
        auto item = itemFromJson(value);
        if (!item) return false;
        items.push_back(std::move(*item));
    }
    if (items.size() > kCapacity) items.resize(kCapacity);
    m_items = std::move(items);
    return true;
}

void ShelfStore::save() {
    if (m_deps.demoMode) return;
    nlohmann::json array = nlohmann::json::array();
    for (const ShelfItem& item : m_items) {
        array.push_back({{"id", item.id},
                         {"bookmark", base64Encode(item.bookmark)},
                         {"name", item.name},
                         {"addedAt", item.addedAt.seconds - kReferenceDate}});
    }
    // A failed write leaves the shelf usable in memory; the next change tries again.
    if (const WriteResult written = m_file.write(array.dump()); !written) {
        DebugLog::write([&] { return "shelf: " + written.error(); });
    }
}

void ShelfStore::add(const std::vector<fs::path>& files) {
    std::unordered_set<std::string> known;
    for (const ShelfItem& item : m_items) {
        if (auto url = item.url()) known.insert(standardised(*url));
    }
    std::vector<ShelfItem> added;
    for (const fs::path& file : files) {
        if (!file.is_absolute()) continue;
        const std::string path = standardised(file);
        std::error_code error;
        if (known.contains(path) || !fs::exists(path, error)) continue;
        auto bookmark = makeFileBookmark(path);
        if (!bookmark) continue;
        known.insert(path);
        added.push_back(
            {makeItemId(), std::move(*bookmark), fs::path(path).filename().string(), m_deps.clock.now()});
    }
    if (added.empty()) return;
    DebugLog::write(
        [&] { return fmt::format("shelf: added {} file{}", added.size(), added.size() == 1 ? "" : "s"); });
    std::reverse(added.begin(), added.end());
    added.insert(added.end(), std::make_move_iterator(m_items.begin()),
                 std::make_move_iterator(m_items.end()));
    if (added.size() > kCapacity) added.resize(kCapacity);
    m_items = std::move(added);
    save();
    changed.emit();
}

void ShelfStore::addUrls(const std::vector<std::string>& urls) {
    std::vector<fs::path> files;
    for (const std::string& url : urls) {
        if (auto path = pathFromFileUrl(url)) files.push_back(std::move(*path));
    }
    add(files);
}

void ShelfStore::remove(const std::string& id) {
    const auto removed = std::erase_if(m_items, [&](const ShelfItem& item) { return item.id == id; });
    if (removed == 0) return;
    if (m_converting == id) m_converting.reset();
    save();
    changed.emit();
}

void ShelfStore::clear() {
    m_items.clear();
    m_converting.reset();
    save();
    changed.emit();
}

void ShelfStore::setConverting(std::optional<std::string> id) {
    if (m_converting == id) return;
    m_converting = std::move(id);
    changed.emit();
}

std::vector<ImageConversion> ShelfStore::conversionOptions(const std::string& id) const {
    const ShelfItem* found = item(id);
    const auto url = found ? found->url() : std::nullopt;
    if (!url || !ImageConverter::isImage(*url)) return {};
    return m_deps.converter.options(*url);
}

void ShelfStore::convert(const std::string& id, ImageConversion conversion) {
    const ShelfItem* found = item(id);
    const auto url = found ? found->url() : std::nullopt;
    if (!url || m_busy.contains(id)) return;
    m_converting.reset();
    m_busy.insert(id);
    changed.emit();
    m_queue->async([this, alive = std::weak_ptr<bool>(m_alive), id, source = *url, conversion] {
        auto result = m_deps.converter.convert(source, conversion);
        m_deps.scheduler.post([this, alive, id, name = source.filename().string(), result, conversion] {
            if (alive.expired()) return;
            DebugLog::write([&] {
                const auto* output = std::get_if<fs::path>(&result);
                return output
                           ? fmt::format("shelf: converted {} with {} to {}", name, rawName(conversion),
                                         output->string())
                           : fmt::format("shelf: convert failed for {}: {}", name,
                                         ImageConverter::describe(std::get<ImageConverter::Failure>(result)));
            });
            conversionFinished(id, result);
        });
    });
}

void ShelfStore::conversionFinished(const std::string& id,
                                    const std::variant<fs::path, ImageConverter::Failure>& result) {
    m_busy.erase(id);
    if (const auto* failure = std::get_if<ImageConverter::Failure>(&result)) {
        showMessage(std::string(ImageConverter::describe(*failure)));
        return;
    }
    const fs::path& output = std::get<fs::path>(result);
    const std::string name = output.filename().string();
    std::error_code error;
    const auto size = fs::file_size(output, error);
    showMessage(error ? "Saved " + name : "Saved " + name + ", " + formatFileSize(size));
    m_deps.activities.flash(LiveActivity{LiveActivity::Download{name, 1.0}}, kConvertedFlashSeconds);
}

void ShelfStore::showMessage(std::string text) {
    m_message = std::move(text);
    m_messageWork = m_deps.scheduler.schedule(kMessageSeconds, [this] {
        m_message.reset();
        changed.emit();
    });
    changed.emit();
}

}  // namespace vantrelle
