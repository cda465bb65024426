#pragma once

#include "printing/CardGrid.h"
#include "printing/PrintCard.h"

#include <QHash>
#include <QImage>
#include <QString>
#include <functional>
#include <vector>

class CDrinkFacade;
class QPagedPaintDevice;

// The glass pictures of a print run, each taken from the glass archive once.
class GlassPictureCache {
  public:
    explicit GlassPictureCache(QString appDir) : m_appDir(std::move(appDir)) {}
    QImage picture(qint32 glassID);
    GlassPictures provider()
    {
        return [this](qint32 id) { return picture(id); };
    }

  private:
    QString m_appDir;
    QHash<qint32, QImage> m_pictures;
};

// After each card: cards done and the total; false cancels the run.
using PrintProgress = std::function<bool(int done, int total)>;

struct PrintResult {
    enum Status { Printed, BadLayout, Canceled, Failed };
    Status status = Printed;
    int cards = 0;
    int pages = 0;
    QString error;
};

// The paper and its printable part as the device reports them, in twips.
PageMetrics pageMetricsOf(const QPagedPaintDevice &device);

// Sets the cards of the drinks on the device, page after page, in the layout's grid.
// BadLayout (and nothing printed) when the layout holds no card.
PrintResult PrintDrinks(QPagedPaintDevice &device, CDrinkFacade &facade, const std::vector<qint32> &drinkIDs,
                        const PrintLayoutSettings &layout, const PrintProgress &progress = {});

// The same into a PDF file on paperName ("Letter", "A4", ...) paper; the file is replaced only
// by a complete run, so a cancelled or failed one leaves what was there.
PrintResult printDrinksToPdf(const QString &pdfPath, CDrinkFacade &facade, const std::vector<qint32> &drinkIDs,
                             const PrintLayoutSettings &layout, const PrintProgress &progress = {},
                             const QString &paperName = QStringLiteral("Letter"));
