#include <gtest/gtest.h>

#include <QFile>
#include <QObject>
#include <QRegularExpression>

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

TEST(RowListModelTest, ForeignAndOutOfRangeIndexesReadNothing) {
    guiApplication();
    ToolListModel model;
    model.setRows({row("calc")});
    const int raw = static_cast<int>(ToolListModel::Role::raw);
    EXPECT_EQ(model.data(model.index(0), raw).toString(), "calc");
    EXPECT_FALSE(model.data(model.index(0), Qt::DisplayRole).isValid());
    EXPECT_FALSE(model.data(model.index(1), raw).isValid());
    ToolListModel other;
    other.setRows({row("x"), row("y")});
    EXPECT_FALSE(model.data(other.index(1), raw).isValid());
    EXPECT_EQ(model.rowCount(model.index(0)), 0);  // a list: rows have no children
}

// A list whose base the QML type registrar can't resolve still runs, but QML tooling no longer knows its
// `count`, and every binding reading it silently falls back to the interpreter.
TEST(RowListModelTest, EveryListReachesQmlWithTheBaseThatHasCount) {
    QFile file(QStringLiteral(VANTRELLE_QML_TYPES_FILE));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString types = QString::fromUtf8(file.readAll());
    static const QRegularExpression component(
        QStringLiteral(R"re(file: "(\w+ListModel)\.h"\s+name: "[\w:]+"\s+)re"
                       R"re(accessSemantics: "\w+"\s+(?:prototype: "([\w:]+)")?)re"));
    int lists = 0;
    for (auto it = component.globalMatch(types); it.hasNext();) {
        const auto match = it.next();
        if (match.captured(1) == QStringLiteral("RowListModel")) continue;
        ++lists;
        EXPECT_EQ(match.captured(2).toStdString(), "vantrelle::RowListModel")
            << match.captured(1).toStdString();
    }
    EXPECT_GE(lists, 16);
}

}  // namespace
}  // namespace vantrelle::testing
