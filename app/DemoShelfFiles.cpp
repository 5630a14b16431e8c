#include "DemoShelfFiles.h"

#include <QColor>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <algorithm>
#include <fstream>

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

bool drawImage(const fs::path& file, QColor from, QColor to, int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32);
    QPainter painter(&image);
    QLinearGradient gradient(0, 0, width, height);
    gradient.setColorAt(0, from);
    gradient.setColorAt(1, to);
    painter.fillRect(image.rect(), gradient);
    painter.setBrush(QColor(255, 255, 255, 60));
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(QRectF(width * 0.1, height * 0.15, width * 0.5, height * 0.12), 8, 8);
    painter.drawRoundedRect(QRectF(width * 0.1, height * 0.35, width * 0.8, height * 0.4), 12, 12);
    painter.end();
    return image.save(QString::fromStdString(file.string()), "PNG");
}

bool writeText(const fs::path& file, const char* text) {
    std::ofstream out(file);
    out << text;
    return static_cast<bool>(out);
}

}  // namespace

std::vector<fs::path> writeDemoShelfFiles(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    std::vector<fs::path> files;
    auto keep = [&](const fs::path& file, bool written) {
        if (written) files.push_back(file);
    };
    keep(folder / "dashboard-mockup.png", drawImage(folder / "dashboard-mockup.png", QColor(0x5b, 0x4b, 0xd6),
                                                    QColor(0x1f, 0xa2, 0xc4), 640, 400));
    keep(folder / "Screenshot rail overflow.png",
         drawImage(folder / "Screenshot rail overflow.png", QColor(0x2b, 0x2d, 0x33),
                   QColor(0xe0, 0x7a, 0x3c), 800, 500));
    keep(folder / "release-notes-0.9.md",
         writeText(folder / "release-notes-0.9.md", "# 0.9\n\n- Shelf conversions\n- Faster log scans\n"));
    keep(folder / "api-schema.json", writeText(folder / "api-schema.json", "{\"openapi\": \"3.1.0\"}\n"));
    keep(folder / "deploy-staging.sh",
         writeText(folder / "deploy-staging.sh", "#!/bin/sh\nmake deploy ENV=staging\n"));
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace vantrelle
