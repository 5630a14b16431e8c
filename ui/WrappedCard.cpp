#include "WrappedCard.h"

#include <QBuffer>
#include <QFont>
#include <QLinearGradient>
#include <QPainter>

#include "support/AtomicFile.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

constexpr int kWidth = 1080;
constexpr int kHeight = 1350;

QString text(const std::string& value) {
    return QString::fromStdString(value);
}

void drawFigure(QPainter& painter, int x, int y, const QString& value, const QString& label) {
    QFont big = painter.font();
    big.setPixelSize(64);
    big.setBold(true);
    painter.setFont(big);
    painter.setPen(Qt::white);
    painter.drawText(QRect(x, y, 460, 80), Qt::AlignLeft | Qt::AlignVCenter, value);
    QFont small = big;
    small.setPixelSize(28);
    small.setBold(false);
    painter.setFont(small);
    painter.setPen(QColor(255, 255, 255, 170));
    painter.drawText(QRect(x, y + 80, 460, 40), Qt::AlignLeft | Qt::AlignVCenter, label);
}

}  // namespace

QImage WrappedCard::render(const WrappedSummary& s) {
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    QLinearGradient background(0, 0, kWidth, kHeight);
    background.setColorAt(0, QColor(0x2a, 0x1b, 0x5e));
    background.setColorAt(1, QColor(0x0b, 0x0b, 0x12));
    painter.fillRect(image.rect(), background);

    QFont title = painter.font();
    title.setPixelSize(84);
    title.setBold(true);
    painter.setFont(title);
    painter.setPen(Qt::white);
    painter.drawText(QRect(80, 90, kWidth - 160, 110), Qt::AlignLeft | Qt::AlignVCenter, text(s.title()));
    QFont range = title;
    range.setPixelSize(34);
    range.setBold(false);
    painter.setFont(range);
    painter.setPen(QColor(255, 255, 255, 170));
    painter.drawText(QRect(80, 200, kWidth - 160, 50), Qt::AlignLeft | Qt::AlignVCenter, text(s.rangeText()));

    drawFigure(painter, 80, 330, text(s.focusHoursText()),
               QStringLiteral("focused in %1 blocks").arg(s.focusBlocks));
    drawFigure(painter, 560, 330, QString::number(s.meetingsJoined), QStringLiteral("meetings joined"));
    const double millions = static_cast<double>(s.aiTokens) / 1e6;
    drawFigure(painter, 80, 520,
               millions >= 1 ? QStringLiteral("%1M").arg(millions, 0, 'f', 1) : QString::number(s.aiTokens),
               QStringLiteral("agent tokens"));
    drawFigure(painter, 560, 520, text(s.cursorText()), QStringLiteral("cursor distance"));
    drawFigure(painter, 80, 710, s.topApp ? text(s.topApp->name) : QStringLiteral("—"),
               s.topApp ? QStringLiteral("top app, %1 h").arg(s.topApp->hours, 0, 'f', 1)
                        : QStringLiteral("top app"));
    const auto best = s.mostFocusedDayText();
    drawFigure(painter, 560, 710, best ? text(*best) : QStringLiteral("—"),
               QStringLiteral("most focused day"));

    QFont headline = title;
    headline.setPixelSize(46);
    painter.setFont(headline);
    painter.setPen(QColor(0xff, 0xd3, 0x5c));
    painter.drawText(QRect(80, 960, kWidth - 160, 160), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap,
                     text(s.cursorMilestone()));
    painter.setFont(range);
    painter.setPen(QColor(255, 255, 255, 120));
    painter.drawText(QRect(80, kHeight - 120, kWidth - 160, 50), Qt::AlignLeft | Qt::AlignVCenter,
                     s.partialSince ? QStringLiteral("Vantrelle · tracking began during this period")
                                    : QStringLiteral("Vantrelle Wrapped"));
    painter.end();
    return image;
}

bool WrappedCard::savePng(const WrappedSummary& summary, const QString& path) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!render(summary).save(&buffer, "PNG")) {
        DebugLog::write("wrapped: could not encode the card");
        return false;
    }
    const WriteResult written = writeFileAtomically(
        path.toStdString(), std::string_view(png.constData(), static_cast<std::size_t>(png.size())));
    if (!written) DebugLog::write([&] { return "wrapped: could not save the card: " + written.error(); });
    return written.ok();
}

}  // namespace vantrelle
