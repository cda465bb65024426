#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QTextItem>
#include <vector>

// A paint device at 1440 dots to the inch (one dot a twip) that keeps what is drawn on it:
// each text with its baseline point and font, and each picture with its rectangle.
class RecordingDevice : public QPaintDevice {
  public:
    struct Text {
        QString text;
        QPointF at; // baseline start, in twips
        QFont font;
        QColor color;
    };
    std::vector<Text> texts;
    std::vector<QRectF> pictures;

    RecordingDevice() : m_engine(this) {}
    QPaintEngine *paintEngine() const override { return const_cast<Engine *>(&m_engine); }

  protected:
    int metric(PaintDeviceMetric m) const override
    {
        switch (m) {
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 1440;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return 0;
        }
    }

  private:
    class Engine : public QPaintEngine {
      public:
        explicit Engine(RecordingDevice *device) : QPaintEngine(AllFeatures), m_device(device) {}
        bool begin(QPaintDevice *) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState &) override {}
        Type type() const override { return User; }
        void drawPixmap(const QRectF &r, const QPixmap &, const QRectF &) override { m_device->pictures.push_back(r); }
        void drawImage(const QRectF &r, const QImage &, const QRectF &, Qt::ImageConversionFlags) override
        {
            m_device->pictures.push_back(r);
        }
        void drawTextItem(const QPointF &p, const QTextItem &item) override
        {
            m_device->texts.push_back({item.text(), p, item.font(), painter()->pen().color()});
        }

      private:
        RecordingDevice *m_device;
    };
    Engine m_engine;
};
