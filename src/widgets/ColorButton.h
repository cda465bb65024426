#pragma once

#include <QColor>
#include <QPushButton>
#include <functional>
#include <optional>

// Asks the user for a colour, starting from the one given; nothing when the user cancels.
using ColorPicker = std::function<std::optional<QColor>(const QColor &initial, QWidget *parent)>;
// The platform's colour dialog.
std::optional<QColor> pickColorWithDialog(const QColor &initial, QWidget *parent);

// A button that shows a colour value and, when clicked, lets the user choose another.
class ColorButton : public QPushButton {
    Q_OBJECT
  public:
    explicit ColorButton(QWidget *parent = nullptr);

    quint32 colorValue() const { return m_value; }
    void setColorValue(quint32 value);
    void setPicker(ColorPicker picker) { m_picker = std::move(picker); }
    QSize sizeHint() const override;

  signals:
    // The user chose a colour; a cancelled choice says nothing.
    void colorPicked(quint32 value);

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    void pick();
    quint32 m_value = 0xFFFFFF;
    ColorPicker m_picker = pickColorWithDialog;
};
