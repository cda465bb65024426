#include "printing/PrintRun.h"

#include "presentation/CDrinkFacade.h"
#include "presentation/PageFiles.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

QImage GlassPictureCache::picture(qint32 glassID)
{
    auto found = m_pictures.constFind(glassID);
    if (found != m_pictures.constEnd())
        return *found;
    const QImage image(PageFiles::GlassPicturePath(m_appDir, glassID));
    m_pictures.insert(glassID, image);
    return image;
}

PageMetrics pageMetricsOf(const QPagedPaintDevice &device)
{
    const QPageLayout page = device.pageLayout();
    const QRectF full = page.fullRect(QPageLayout::Point), paint = page.paintRect(QPageLayout::Point);
    return {float(full.width() * 20), float(full.height() * 20), float(paint.width() * 20), float(paint.height() * 20)};
}

PrintResult PrintDrinks(QPagedPaintDevice &device, CDrinkFacade &facade, const std::vector<qint32> &drinkIDs,
                        const PrintLayoutSettings &layout, const PrintProgress &progress)
{
    PrintResult result;
    if (CardGrid::CardsPerPage(layout) < 1) {
        result.status = PrintResult::BadLayout;
        return result;
    }
    device.setPageOrientation(layout.portrait ? QPageLayout::Portrait : QPageLayout::Landscape);
    const std::vector<CardCell> cells = CardGrid::NewPage(layout, pageMetricsOf(device));

    QPainter painter;
    if (!painter.begin(&device)) {
        result.status = PrintResult::Failed;
        result.error = QStringLiteral("The printer could not be started.");
        return result;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    CardSurface surface(painter);
    GlassPictureCache glasses(facade.appDir());
    const GlassPictures pictures = glasses.provider();

    size_t cell = 0;
    bool pageWaiting = false; // a new page is only begun for a card that goes on it
    const int total = int(drinkIDs.size());
    result.pages = total > 0 ? 1 : 0;
    for (int i = 0; i < total; ++i) {
        if (pageWaiting) {
            device.newPage();
            ++result.pages;
            pageWaiting = false;
        }
        PrintCard(surface, cardContentOf(facade, drinkIDs[size_t(i)]), layout, cells[cell], pictures);
        ++result.cards;
        if (++cell == cells.size()) {
            cell = 0;
            pageWaiting = true;
        }
        if (progress && !progress(i + 1, total)) {
            result.status = PrintResult::Canceled;
            break;
        }
    }
    painter.end();
    return result;
}

PrintResult printDrinksToPdf(const QString &pdfPath, CDrinkFacade &facade, const std::vector<qint32> &drinkIDs,
                             const PrintLayoutSettings &layout, const PrintProgress &progress, const QString &paperName)
{
    PrintResult result;
    if (CardGrid::CardsPerPage(layout) < 1) {
        result.status = PrintResult::BadLayout;
        return result;
    }
    QSaveFile file(pdfPath);
    if (!file.open(QIODevice::WriteOnly)) {
        result.status = PrintResult::Failed;
        result.error = file.errorString();
        return result;
    }
    {
        QPdfWriter writer(&file);
        writer.setCreator(QStringLiteral("Corvane"));
        writer.setResolution(1200);
        const QPageSize::PageSizeId id =
            paperName.compare(QStringLiteral("A4"), Qt::CaseInsensitive) == 0 ? QPageSize::A4 : QPageSize::Letter;
        writer.setPageLayout(QPageLayout(QPageSize(id), QPageLayout::Portrait, QMarginsF()));
        result = PrintDrinks(writer, facade, drinkIDs, layout, progress);
    }
    if (result.status != PrintResult::Printed) {
        file.cancelWriting();
        return result;
    }
    if (!file.commit()) {
        result.status = PrintResult::Failed;
        result.error = file.errorString();
    }
    return result;
}
