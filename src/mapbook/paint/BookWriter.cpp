// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/paint/BookWriter.h"

#include "coords/OwnDegrees.h"
#include "drawing/DrawingFile.h"
#include "formats/image/Jpeg.h"
#include "formats/pdf/PdfSupplement.h"
#include "mapbook/pages/PageList.h"
#include "mapbook/paint/FetchedMaps.h"
#include "mapbook/paint/PagePainter.h"
#include "mapbook/paint/PageStamps.h"
#include "mapbook/paint/PdfPages.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "platform/OutputSet.h"
#include "platform/ScratchFolder.h"
#include "platform/Signals.h"
#include "platform/Task.h"
#include "render/DrawingScene.h"
#include "render/package/PackageScene.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <utility>
#include <vector>

namespace vexlator::mapbook {

namespace {

constexpr int jpegQuality = 92;
constexpr auto betweenLooks = std::chrono::milliseconds(100);

/// All layers but the one of the frames; "" stands for all.
std::vector<std::string> ShownLayers(const BookPlan& plan) {
    std::vector<std::string> layers;
    if (plan.framesLayer.empty()) return layers;
    drawing::DrawingFile file(plan.drawing);
    for (const drawing::Layer& layer : file.Current().layers())
        if (!platform::SameNoCase(layer.name, plan.framesLayer)) layers.push_back(layer.name);
    return layers;
}

render::Scene SceneOf(const BookPlan& plan, const BookListener& listener) {
    render::SceneOptions options;
    options.layers = ShownLayers(plan);
    options.symbolsFolder = plan.symbolsFolder;
    options.tell = listener.tell;
    return render::SceneOfFile(plan.drawing, options);
}

std::optional<render::Scene> BackgroundOf(const BookPlan& plan, const BookListener& listener) {
    if (plan.package.empty()) return std::nullopt;
    try {
        return render::SceneOfPackage(plan.package, {});
    } catch (const platform::ReadError& error) {
        listener.tell(std::string(error.what()) + "; the pages have no background");
        return std::nullopt;
    }
}

SurveyReport ReportOf(const BookPlan& plan) {
    if (!plan.hasReport) return {};
    drawing::DrawingFile file(plan.drawing);
    return ReadSurvey(file);
}

std::string JpegOf(const BookContent& content, const BookPage& page, std::string_view stamp) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(jpegQuality);
    writer.write(PagePainter(content, page).Image());
    return formats::WithJpegComment(
        {buffer.data().constData(), static_cast<std::size_t>(buffer.data().size())}, stamp);
}

/// Pages that threads draw, in any order. Bytes wait here until they are taken.
class PageQueue {
public:
    using Draw = std::function<std::string(std::size_t page)>;

    PageQueue(std::vector<std::size_t> pages, Draw draw) : pages_(std::move(pages)), draw_(std::move(draw)) {
        std::size_t count = std::min<std::size_t>(platform::CountProcessors(), pages_.size());
        for (std::size_t i = 0; i < count; ++i) threads_.emplace_back([this] { Work(); });
    }
    ~PageQueue() { next_ = pages_.size(); }
    PageQueue(const PageQueue&) = delete;
    PageQueue& operator=(const PageQueue&) = delete;

    bool IsFinished() const { return taken_ == pages_.size(); }
    /// A page and its bytes; nothing if none was finished within moments. Rethrows what a thread has thrown.
    std::optional<std::pair<std::size_t, std::string>> Take() {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, betweenLooks, [this] { return !done_.empty() || problem_; });
        if (problem_) std::rethrow_exception(problem_);
        if (done_.empty()) return std::nullopt;
        auto page = std::move(done_.front());
        done_.pop_front();
        ++taken_;
        return page;
    }

private:
    void Work() {
        for (std::size_t i = next_++; i < pages_.size(); i = next_++) {
            try {
                std::string bytes = draw_(pages_[i]);
                std::lock_guard lock(mutex_);
                done_.emplace_back(pages_[i], std::move(bytes));
            } catch (...) {
                std::lock_guard lock(mutex_);
                problem_ = std::current_exception();
            }
            changed_.notify_one();
        }
    }

    std::vector<std::size_t> pages_;
    Draw draw_;
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::pair<std::size_t, std::string>> done_;
    std::exception_ptr problem_;
    std::size_t taken_ = 0;
    std::vector<std::jthread> threads_;  ///< last: they end before what they use
};

/// The files of one book.
class BookFiles {
public:
    BookFiles(const BookContent& content, const std::vector<BookPage>& pages, const BookListener& listener)
        : content_(content),
          plan_(content.plan),
          pages_(pages),
          listener_(listener),
          degrees_(plan_.system),
          total_((plan_.images ? pages.size() : 0) + (plan_.drawsPdf ? pages.size() : 0)) {}

    std::size_t Write() {
        std::optional<PdfPages> pdf;
        if (plan_.drawsPdf) pdf.emplace(content_, pages_, scratch_.Path() + "/book.pdf");
        std::size_t kept = plan_.images ? WriteImages() : 0;
        if (pdf) FinishPdf(*pdf);
        PageList list = List();
        if (pdf) AddPdf(list);
        if (plan_.listsPages) set_.Add(plan_.PathOf("CFG")).Write(PageListText(list));
        platform::ThrowIfStopped();
        set_.Commit();
        if (plan_.images) RemoveOldImages();
        return kept;
    }

private:
    void Tell(std::size_t pdfPages = 0) { listener_.progress(done_ + pdfPages, total_); }

    std::string StampOf(const PageStamps& stamps, std::size_t page) const {
        return stamps.Of(pages_[page].name, pages_[page].backgroundImage);
    }

    std::size_t WriteImages() {
        PageStamps stamps(plan_);
        std::vector<std::size_t> missing;
        for (std::size_t i = 0; i < pages_.size(); ++i)
            if (!HasStamp(plan_.ImagePath(pages_[i].name), StampOf(stamps, i))) missing.push_back(i);
        const std::size_t kept = pages_.size() - missing.size();
        done_ = kept;
        PageQueue queue(
            missing, [&](std::size_t page) { return JpegOf(content_, pages_[page], StampOf(stamps, page)); });
        while (!queue.IsFinished()) {
            platform::ThrowIfStopped();
            auto page = queue.Take();
            if (!page) continue;
            set_.Add(plan_.ImagePath(pages_[page->first].name)).Write(page->second);
            ++done_;
            Tell();
        }
        return kept;
    }

    void FinishPdf(PdfPages& pdf) {
        while (!pdf.WaitForEnd(betweenLooks)) {
            platform::ThrowIfStopped();
            Tell(pdf.Finished());
        }
    }

    void AddPdf(const PageList& list) {
        std::vector<formats::PdfPageSupplement> supplements;
        for (std::size_t i = 0; i < pages_.size(); ++i) {
            const ListedPage& page = list.pages[i];
            supplements.push_back({page.title, list.PlaceOf(page)});
            if (auto& place = supplements.back().place) {
                double higher = PdfHeightOf(pages_[i]) - page.height * formats::pointsPerMillimetre;
                place->bottom += higher;
                place->top += higher;
            }
        }
        platform::MappedFile drawn(scratch_.Path() + "/book.pdf");
        platform::OutputFile& file = set_.Add(plan_.PathOf("PDF"));
        file.Write(drawn.Text());
        file.Write(formats::PdfSupplementFor(drawn.Text(), supplements));
    }

    PageList List() {
        PageList list{.title = plan_.job,
                      .system = degrees_.Text(),
                      .isProjected = degrees_.IsProjected(),
                      .pages = {}};
        for (const BookPage& page : pages_) {
            PagePainter painter(content_, page);
            double unit = painter.PixelsPerMillimetre();
            const render::PixelArea& map = painter.MapArea();
            list.pages.push_back({.image = plan_.ImagePath(page.name),
                                  .title = page.name,
                                  .width = page.layout.width,
                                  .height = page.layout.height,
                                  .mapLeft = map.left / unit,
                                  .mapTop = map.top / unit,
                                  .mapRight = (map.left + map.width) / unit,
                                  .mapBottom = (map.top + map.height) / unit,
                                  .corners = page.kind == PageKind::Report
                                                 ? std::nullopt
                                                 : CornersOf(painter.MapView().Ground())});
        }
        return list;
    }

    std::optional<std::array<double, 8>> CornersOf(const drawing::Box& ground) {
        if (!degrees_.IsKnown()) return std::nullopt;
        const util::PlanePoint corners[] = {{ground.minX, ground.minY},
                                            {ground.minX, ground.maxY},
                                            {ground.maxX, ground.maxY},
                                            {ground.maxX, ground.minY}};
        std::array<double, 8> degrees{};
        for (std::size_t i = 0; i < std::size(corners); ++i) {
            auto place = degrees_.Of(corners[i]);
            if (!place) return std::nullopt;
            degrees[2 * i] = place->latitude;
            degrees[2 * i + 1] = place->longitude;
        }
        return degrees;
    }

    /// Of pages that a former book had.
    void RemoveOldImages() {
        std::set<std::string> names;
        for (const BookPage& page : pages_)
            names.insert(platform::LowerAscii(util::FileNameOf(plan_.ImagePath(page.name))));
        const std::string begin = platform::LowerAscii(plan_.job) + "(";
        for (const std::string& file : platform::ListFiles(plan_.folder)) {
            std::string name = platform::LowerAscii(file), path = util::JoinPath(plan_.folder, file);
            if (name.starts_with(begin) && name.ends_with(").jpg") && !names.contains(name) &&
                IsPageImage(path))
                platform::RemoveFile(path);
        }
    }

    const BookContent& content_;
    const BookPlan& plan_;
    const std::vector<BookPage>& pages_;
    const BookListener& listener_;
    coords::OwnDegrees degrees_;
    std::size_t total_, done_ = 0;
    platform::ScratchFolder scratch_;
    platform::OutputSet set_;
};

}  // namespace

BookResult WriteBook(BookPlan plan, const BookListener& listener) {
    const render::Scene scene = SceneOf(plan, listener);
    const std::optional<render::Scene> background = BackgroundOf(plan, listener);
    platform::ThrowIfStopped();
    const SurveyReport report = ReportOf(plan);
    std::vector<BookPage> pages = PagesOf(plan, scene, report, listener.tell);
    platform::ScratchFolder maps;
    FetchMaps(plan, scene, pages, maps.Path(), listener.tell);
    BookContent content{plan, scene, background ? &*background : nullptr, &report};
    BookResult result{.pages = pages.size()};
    result.keptImages = BookFiles(content, pages, listener).Write();
    for (const render::SceneLayer& layer : scene.Layers()) {
        result.layers += layer.items > 0 ? 1 : 0;
        result.features += layer.items;
    }
    return result;
}

}  // namespace vexlator::mapbook
