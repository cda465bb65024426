#include "shell/CommandPanels.h"

#include "shell/CommandIcons.h"

#include <QMouseEvent>
#include <QVBoxLayout>

CommandGroupPanel::CommandGroupPanel(int group, QWidget *parent) : QLabel(parent), m_group(group)
{
    setObjectName(QStringLiteral("pnlMenu%1").arg(group));
    setAlignment(Qt::AlignCenter);
    setToolTip(Commands::groupHint(group));
    setCursor(Qt::PointingHandCursor);
}

void CommandGroupPanel::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        emit clicked(m_group);
}

void CommandGroupPanel::enterEvent(QEnterEvent *) { emit entered(m_group); }
void CommandGroupPanel::leaveEvent(QEvent *) { emit left(m_group); }

PopupItem::PopupItem(QWidget *parent) : QLabel(parent)
{
    setAutoFillBackground(true);
    setContentsMargins(10, 3, 16, 3);
}

void PopupItem::setEntry(const CommandEntry &entry, const QColor &back, const QColor &hot, const QColor &text)
{
    m_entry = entry;
    m_back = back;
    m_hot = hot;
    QFont f = font();
    f.setBold(entry.bold);
    setFont(f);
    QPalette p = palette();
    p.setColor(QPalette::WindowText, text);
    setPalette(p);
    if (entry.isSeparator()) {
        setText(QString());
        setFixedHeight(7);
        setFrameShape(QFrame::NoFrame);
    } else {
        setText(entry.caption);
        setMinimumHeight(0);
        setMaximumHeight(QWIDGETSIZE_MAX);
    }
    setObjectName(QStringLiteral("pnlPopupItem_%1").arg(entry.number));
    paintBack(m_back);
}

void PopupItem::paintBack(const QColor &c)
{
    QPalette p = palette();
    p.setColor(QPalette::Window, c);
    setPalette(p);
}

void PopupItem::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && m_entry.number > 0)
        emit chosen(m_entry.number);
}

void PopupItem::enterEvent(QEnterEvent *)
{
    if (!m_entry.isSeparator())
        paintBack(m_hot);
}

void PopupItem::leaveEvent(QEvent *) { paintBack(m_back); }

CommandPanels::CommandPanels(QWidget *popupHost, QWidget *parent) : QWidget(parent), m_host(popupHost)
{
    setObjectName(QStringLiteral("pctSys"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(6);
    for (int g = 0; g < Commands::GroupCount; ++g) {
        auto *panel = new CommandGroupPanel(g, this);
        pnlMenu << panel;
        connect(panel, &CommandGroupPanel::clicked, this, &CommandPanels::pnlMenu_Click);
        connect(panel, &CommandGroupPanel::entered, this, &CommandPanels::pnlMenu_MouseEnter);
        connect(panel, &CommandGroupPanel::left, this, &CommandPanels::pnlMenu_MouseLeave);
        layout->addWidget(panel);
    }
    layout->addStretch(1);

    pnlPopup = new QFrame(popupHost);
    pnlPopup->setObjectName(QStringLiteral("pnlPopup"));
    pnlPopup->setFrameShape(QFrame::Box);
    pnlPopup->setAutoFillBackground(true);
    m_popupLayout = new QVBoxLayout(pnlPopup);
    m_popupLayout->setContentsMargins(1, 1, 1, 1);
    m_popupLayout->setSpacing(0);
    pnlPopup->hide();

    m_colors = {palette().color(QPalette::WindowText), palette().color(QPalette::Window),
                palette().color(QPalette::Midlight), palette().color(QPalette::Highlight),
                palette().color(QPalette::HighlightedText)};
    m_currentView = [] { return 6; };
    m_currentMarked = [] { return false; };
    for (int g = 0; g < Commands::GroupCount; ++g)
        setPicture(g, CommandIcons::Rest);
}

void CommandPanels::setStateSource(std::function<int()> currentView, std::function<bool()> currentMarked)
{
    m_currentView = std::move(currentView);
    m_currentMarked = std::move(currentMarked);
}

void CommandPanels::setColors(const PanelColors &colors)
{
    m_colors = colors;
    QPalette p = pnlPopup->palette();
    p.setColor(QPalette::Window, colors.background);
    p.setColor(QPalette::WindowText, colors.text);
    pnlPopup->setPalette(p);
    for (int g = 0; g < Commands::GroupCount; ++g)
        setPicture(g, g == m_openGroup ? CommandIcons::Pressed : CommandIcons::Rest);
}

void CommandPanels::setPicture(int group, int state)
{
    // A pressed group looks like a selected tab: highlight behind, the selected text colour on it.
    const bool pressed = state == CommandIcons::Pressed;
    pnlMenu[group]->setPixmap(CommandIcons::groupPicture(group, CommandIcons::State(state),
                                                         pressed ? m_colors.selectedText : m_colors.text,
                                                         pressed ? m_colors.highlight : m_colors.accent));
}

bool CommandPanels::popupOpen() const { return pnlPopup->isVisible(); }

QList<PopupItem *> CommandPanels::visibleItems() const { return pnlPopupItem.mid(0, popupItemCount); }

void CommandPanels::AddPopupItem(const CommandEntry &entry)
{
    if (popupItemCount == pnlPopupItem.size()) {
        auto *item = new PopupItem(pnlPopup);
        connect(item, &PopupItem::chosen, this, [this](int number) {
            CloseCommandPopup();
            emit command(number);
        });
        m_popupLayout->addWidget(item);
        pnlPopupItem << item;
    }
    PopupItem *item = pnlPopupItem[popupItemCount++];
    item->setEntry(entry, m_colors.background, m_colors.accent, m_colors.text);
    item->show();
}

void CommandPanels::ShowCommandPopup(int group)
{
    CloseCommandPopup();
    setPicture(group, CommandIcons::Pressed);
    m_openGroup = group;
    popupItemCount = 0;
    for (const CommandEntry &e : Commands::popupEntries(group, m_currentView(), m_currentMarked()))
        AddPopupItem(e);
    // Entries of an earlier, longer pop-up stay loaded but out of sight.
    for (int i = popupItemCount; i < pnlPopupItem.size(); ++i)
        pnlPopupItem[i]->hide();
    pnlPopup->adjustSize();
    const QPoint corner = pnlMenu[group]->mapTo(m_host, QPoint(pnlMenu[group]->width(), 0));
    const int y = qMax(0, qMin(corner.y(), m_host->height() - pnlPopup->height()));
    pnlPopup->move(corner.x() + 2, y);
    pnlPopup->raise();
    pnlPopup->show();
}

void CommandPanels::CloseCommandPopup()
{
    if (!pnlPopup->isVisible())
        return;
    pnlPopup->hide();
    m_openGroup = -1;
    for (int g = 0; g < Commands::GroupCount; ++g)
        setPicture(g, CommandIcons::Rest);
}

void CommandPanels::hidePopup()
{
    pnlPopup->hide();
    m_openGroup = -1;
}

bool CommandPanels::ownsWidget(const QWidget *w) const
{
    for (; w; w = w->parentWidget()) {
        if (w == pnlPopup)
            return true;
        for (const CommandGroupPanel *panel : pnlMenu)
            if (w == panel)
                return true;
    }
    return false;
}

void CommandPanels::pnlMenu_Click(int group)
{
    if (popupOpen())
        CloseCommandPopup();
    else
        ShowCommandPopup(group);
}

void CommandPanels::pnlMenu_MouseEnter(int group)
{
    if (popupOpen()) {
        // While a pop-up is open it follows the mouse from group to group.
        if (group != m_openGroup)
            ShowCommandPopup(group);
        return;
    }
    setPicture(group, CommandIcons::Hover);
    emit hint(Commands::groupHint(group));
}

void CommandPanels::pnlMenu_MouseLeave(int group)
{
    if (popupOpen())
        return;
    setPicture(group, CommandIcons::Rest);
    emit hint(QString());
}
