#include "widgets/ColorButton.h"

#include "base/ColorValues.h"
#include "widgets/ApplyScheme.h"

#include <QColorDialog>
#include <QStyleOptionButton>
#include <QStylePainter>

std::optional<QColor> pickColorWithDialog(const QColor &initial, QWidget *parent)
{
    QColorDialog dialog(initial, parent);
    dialog.setObjectName(QStringLiteral("cdPickColor"));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedColor();
}

ColorButton::ColorButton(QWidget *parent) : QPushButton(parent)
{
    connect(this, &QPushButton::clicked, this, &ColorButton::pick);
}

void ColorButton::setColorValue(quint32 value)
{
    m_value = value;
    update();
}

QSize ColorButton::sizeHint() const
{
    return QSize(64, 26);
}

void ColorButton::pick()
{
    const std::optional<QColor> chosen = m_picker(schemeColor(m_value), window());
    if (!chosen || !chosen->isValid())
        return;
    setColorValue(ColorValues::fromQColor(*chosen));
    emit colorPicked(m_value);
}

void ColorButton::paintEvent(QPaintEvent *)
{
    QStylePainter p(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    p.drawControl(QStyle::CE_PushButton, option);
    const QRect swatch = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).adjusted(2, 2, -2, -2);
    p.setPen(palette().color(QPalette::Dark));
    p.setBrush(schemeColor(m_value));
    p.drawRect(swatch.adjusted(0, 0, -1, -1));
}
