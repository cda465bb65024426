#include "widgets/ApplyScheme.h"

#include "base/ColorValues.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QProxyStyle>
#include <QScrollArea>
#include <QSplitter>
#include <QTableView>

namespace {

enum class Kind { TextAndBack, Back, Grid, Control, Container };

Kind kindOf(const QWidget *w)
{
    if (qobject_cast<const QTableView *>(w))
        return Kind::Grid;
    // Text boxes, lists, trees and the page browser are scroll areas too.
    if (qobject_cast<const QAbstractScrollArea *>(w) || qobject_cast<const QLineEdit *>(w) ||
        qobject_cast<const QComboBox *>(w) || qobject_cast<const QAbstractSpinBox *>(w))
        return Kind::Control;
    if (qobject_cast<const QSplitter *>(w))
        return Kind::Back;
    if (const auto *label = qobject_cast<const QLabel *>(w)) {
        const bool picture = !label->pixmap().isNull() || label->movie();
        return picture ? Kind::Back : Kind::TextAndBack;
    }
    if (qobject_cast<const QAbstractButton *>(w) || qobject_cast<const QGroupBox *>(w) ||
        qobject_cast<const QFrame *>(w))
        return Kind::TextAndBack;
    // Plain widgets that only hold others: they draw nothing, the form shows through.
    return Kind::Container;
}

// Backgrounds in every state; text and selection only while enabled, so that a disabled
// control still looks disabled.
void setBack(QPalette &p, QPalette::ColorRole role, const QColor &c)
{
    p.setColor(role, c);
}

void setText(QPalette &p, QPalette::ColorRole role, const QColor &c)
{
    p.setColor(QPalette::Active, role, c);
    p.setColor(QPalette::Inactive, role, c);
}

// Draws a grid's lines in the grid's own background colour, as the scheme has them; the
// platform's style would draw them a shade darker.
class GridLineStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override
    {
        if (hint == SH_Table_GridLineColor && option)
            return int(option->palette.color(QPalette::Base).rgba());
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

void useGridLineStyle(QTableView *grid)
{
    static QPointer<GridLineStyle> style;
    if (!style) {
        style = new GridLineStyle;
        style->setParent(qApp);
    }
    if (grid->style() != style)
        grid->setStyle(style);
}

struct Colors {
    QColor text, back, highlight, selectedText;
};

void colorControl(QWidget *w, Kind kind, const Colors &c)
{
    QPalette p = w->palette();
    switch (kind) {
    case Kind::TextAndBack:
        setBack(p, QPalette::Window, c.back);
        setText(p, QPalette::WindowText, c.text);
        // Button colours only on buttons: a frame passes its palette on to a combo box inside.
        if (qobject_cast<QAbstractButton *>(w)) {
            setBack(p, QPalette::Button, c.back);
            setText(p, QPalette::ButtonText, c.text);
        }
        break;
    case Kind::Back:
        setBack(p, QPalette::Window, c.back);
        w->setAutoFillBackground(true);
        break;
    case Kind::Grid:
        setBack(p, QPalette::Base, c.back);
        setBack(p, QPalette::AlternateBase, c.back);
        setBack(p, QPalette::Window, c.back);
        setText(p, QPalette::Text, c.text);
        setText(p, QPalette::Highlight, c.highlight);
        setText(p, QPalette::HighlightedText, c.selectedText);
        break;
    case Kind::Control:
    case Kind::Container:
        return;
    }
    w->setPalette(p);
    if (kind == Kind::Grid)
        useGridLineStyle(static_cast<QTableView *>(w));
}

void colorChildren(QWidget *parent, const Colors &c)
{
    for (QObject *o : parent->children()) {
        auto *w = qobject_cast<QWidget *>(o);
        if (!w || w->isWindow())
            continue;
        const Kind kind = kindOf(w);
        colorControl(w, kind, c);
        // The inner parts of a text box, combo or grid belong to it; a scroll area's page may
        // hold controls of the form.
        if (kind != Kind::Control && kind != Kind::Grid)
            colorChildren(w, c);
        else if (auto *area = qobject_cast<QScrollArea *>(w); area && area->widget())
            colorChildren(area->widget(), c);
    }
}

} // namespace

QColor schemeColor(quint32 value)
{
    return ColorValues::toQColor(value, QGuiApplication::palette());
}

void ApplySchemeToForm(QWidget *form, const modCorvane::State &s)
{
    const QPalette platform = QGuiApplication::palette();
    const Colors c{ColorValues::toQColor(s.schemeTextColor, platform),
                   ColorValues::toQColor(s.schemeBackgroundColor, platform),
                   ColorValues::toQColor(s.schemeHighlightColor, platform),
                   ColorValues::selectedTextColor(s.schemeTextColor, platform)};
    QPalette p = form->palette();
    setBack(p, QPalette::Window, c.back);
    setText(p, QPalette::WindowText, c.text);
    form->setPalette(p);
    colorChildren(form, c);
}

void ApplySchemeToForm(QWidget *form)
{
    ApplySchemeToForm(form, modCorvane::state());
}

void KeepPlatformColors(QWidget *control)
{
    const QPalette platform = QGuiApplication::palette();
    QPalette p;
    for (int g = 0; g < QPalette::NColorGroups; ++g) {
        const auto group = QPalette::ColorGroup(g);
        for (int r = 0; r < QPalette::NColorRoles; ++r) {
            const auto role = QPalette::ColorRole(r);
            p.setBrush(group, role, platform.brush(group, role)); // marks the role as set
        }
    }
    control->setPalette(p);
}
