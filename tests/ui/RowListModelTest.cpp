#include <gtest/gtest.h>

#include <QObject>

#include "GuiApplication.h"
#include "ToolListModel.h"

namespace vantrelle::testing {
namespace {

using Row = ToolListModel::Row;

Row row(const char* raw) {
    return {QString::fromUtf8(raw), QString::fromUtf8(raw).toUpper(), QStringLiteral("i"), QColor(Qt::red)};
}

// What a view would hear from one replacement of the rows.
struct Heard {
    QList<std::pair<int, int>> changed, inserted, removed;
    int countChanges = 0;
    bool operator==(const Heard&) const = default;
};

Heard replace(ToolListModel& model, std::vector<Row> next) {
    Heard heard;
    QObject scope;
    QObject::connect(&model, &QAbstractItemModel::dataChanged, &scope,
                     [&](const QModelIndex& a, const QModelIndex& b) {
                         heard.changed.append({a.row(), b.row()});
                     });
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, &scope,
                     [&](const QModelIndex&, int a, int b) {
                         heard.inserted.append({a, b});
                     });
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &scope, [&](const QModelIndex&, int a, int b) {
        heard.removed.append({a, b});
    });
    QObject::connect(&model, &RowListModel::countChanged, &scope, [&] { ++heard.countChanges; });
    model.setRows(std::move(next));
    return heard;
}

struct ReplaceRow {
    const char* name;
    std::vector<Row> next;
    Heard heard;
};

TEST(RowListModelTest, ReplacingTheRowsAnnouncesOnlyWhatChangedCameOrWent) {
    guiApplication();
    const std::vector<Row> start{row("a"), row("b"), row("c"), row("d")};
    const ReplaceRow rows[] = {
        {"the same rows", start, {}},
        {"one row changed", {row("a"), row("x"), row("c"), row("d")}, {{{1, 1}}, {}, {}, 0}},
        {"two rows changed: one range over both",
         {row("a"), row("x"), row("c"), row("y")},
         {{{1, 3}}, {}, {}, 0}},
        {"rows added at the end",
         {row("a"), row("b"), row("c"), row("d"), row("e"), row("f")},
         {{}, {{4, 5}}, {}, 1}},
        {"rows dropped from the end", {row("a"), row("b")}, {{}, {}, {{2, 3}}, 1}},
        {"first row changed and one added",
         {row("x"), row("b"), row("c"), row("d"), row("e")},
         {{{0, 0}}, {{4, 4}}, {}, 1}},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.name);
        ToolListModel model;
        model.setRows(start);
        EXPECT_EQ(replace(model, r.next), r.heard);
        EXPECT_EQ(model.rows(), r.next);
        EXPECT_EQ(model.property("count").toInt(), static_cast<int>(r.next.size()));  // as QML reads it
    }
}

}  // namespace
}  // namespace vantrelle::testing
