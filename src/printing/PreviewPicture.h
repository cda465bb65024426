#pragma once

#include <QWidget>
#include <functional>

class QPainter;

// A picture box the print dialog's previews draw on: it keeps no picture of its own and asks
// for one whenever it paints, so a redraw is an update().
class PreviewPicture : public QWidget {
    Q_OBJECT
  public:
    using Painter = std::function<void(QPainter &, QWidget &)>;
    explicit PreviewPicture(QWidget *parent = nullptr);
    void setPainter(Painter painter) { m_painter = std::move(painter); }
    QSize sizeHint() const override { return {260, 260}; }

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    Painter m_painter;
};
