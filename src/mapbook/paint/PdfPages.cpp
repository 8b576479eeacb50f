// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/paint/PdfPages.h"

#include "platform/Errors.h"

#include <QFile>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <utility>

namespace vexlator::mapbook {

namespace {

constexpr double millimetresPerInch = 25.4;

QPageSize SizeOf(const BookPage& page) {
    return QPageSize(QSizeF(page.layout.width, page.layout.height), QPageSize::Millimeter, QString(),
                     QPageSize::ExactMatch);
}

}  // namespace

double PdfHeightOf(const BookPage& page) {
    return SizeOf(page).sizePoints().height();
}

PdfPages::PdfPages(const BookContent& content, const std::vector<BookPage>& pages, std::string path)
    : content_(content), pages_(pages), path_(std::move(path)), thread_([this](const std::stop_token& stop) {
          try {
              Draw(stop);
          } catch (...) {
              problem_ = std::current_exception();
          }
          std::lock_guard lock(mutex_);
          hasEnded_ = true;
          changed_.notify_one();
      }) {}

bool PdfPages::WaitForEnd(std::chrono::milliseconds most) {
    std::unique_lock lock(mutex_);
    if (!changed_.wait_for(lock, most, [this] { return hasEnded_; })) return false;
    if (problem_) std::rethrow_exception(problem_);
    return true;
}

void PdfPages::Draw(const std::stop_token& stop) {
    QFile file(QString::fromStdString(path_));
    if (!file.open(QIODevice::WriteOnly)) throw platform::WriteError(path_, file.errorString().toStdString());
    {
        QPdfWriter writer(&file);
        writer.setTitle(QString::fromStdString(content_.plan.job));
        writer.setCreator(QStringLiteral("Vexlator"));
        writer.setPageMargins({});
        writer.setPageSize(SizeOf(pages_.front()));
        QPainter painter(&writer);
        for (const BookPage& page : pages_) {
            if (stop.stop_requested()) return;
            if (&page != &pages_.front()) {
                writer.setPageSize(SizeOf(page));
                writer.newPage();
            }
            PagePainter pagePainter(content_, page);
            double scale = writer.resolution() / millimetresPerInch / pagePainter.PixelsPerMillimetre();
            painter.save();
            painter.scale(scale, scale);
            pagePainter.Paint(painter);
            painter.restore();
            ++finished_;
        }
    }
    // The disk can be full.
    if (!file.flush() || file.error() != QFile::NoError)
        throw platform::WriteError(path_, file.errorString().toStdString());
}

}  // namespace vexlator::mapbook
