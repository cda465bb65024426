#include "shell/LetterTabs.h"

#include <QGridLayout>
#include <QMouseEvent>

LetterTab::LetterTab(int number, QWidget *parent)
    : QLabel(number == 0 ? QStringLiteral("0-9") : QString(QChar(64 + number)), parent), m_number(number)
{
    setObjectName(QStringLiteral("pnlListSet%1").arg(number));
    setAlignment(Qt::AlignCenter);
    setAutoFillBackground(true);
    setFrameShape(QFrame::Panel);
    setFrameShadow(QFrame::Raised);
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0-9")) + 6);
    setCursor(Qt::PointingHandCursor);
}

void LetterTab::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        emit clicked(m_number);
}

void LetterTab::enterEvent(QEnterEvent *) { emit hovered(m_number, true); }

void LetterTab::leaveEvent(QEvent *) { emit hovered(m_number, false); }

LetterTabs::LetterTabs(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("pnlListSets"));
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(1);
    // Three rows of nine keep the tabs readable in a narrow list column.
    for (int t = 0; t < 27; ++t) {
        auto *tab = new LetterTab(t, this);
        m_tabs[size_t(t)] = tab;
        grid->addWidget(tab, t / 9, t % 9);
        connect(tab, &LetterTab::clicked, this, &LetterTabs::tabClicked);
        connect(tab, &LetterTab::hovered, this, [this](int n, bool inside) {
            if (n != m_selected)
                paintTab(n, inside);
        });
    }
    m_colors = {palette().color(QPalette::Button), palette().color(QPalette::ButtonText),
                palette().color(QPalette::Highlight), palette().color(QPalette::HighlightedText),
                palette().color(QPalette::Midlight)};
    for (int t = 0; t < 27; ++t)
        paintTab(t, false);
}

void LetterTabs::setColors(const TabColors &colors)
{
    m_colors = colors;
    for (int t = 0; t < 27; ++t)
        paintTab(t, false);
}

void LetterTabs::select(int t)
{
    const int previous = m_selected;
    m_selected = t;
    if (previous >= 0 && previous < 27)
        paintTab(previous, false);
    if (t >= 0 && t < 27)
        paintTab(t, false);
}

void LetterTabs::paintTab(int t, bool hot)
{
    LetterTab *tab = m_tabs[size_t(t)];
    const bool selected = t == m_selected;
    QPalette p = tab->palette();
    p.setColor(QPalette::Window, selected ? m_colors.selectedBack : hot ? m_colors.hotBack : m_colors.back);
    p.setColor(QPalette::WindowText, selected ? m_colors.selectedText : m_colors.text);
    tab->setPalette(p);
    QFont f = tab->font();
    f.setBold(selected || hot);
    tab->setFont(f);
}
