#pragma once

#include <QColor>
#include <QFrame>
#include <QLabel>
#include <QList>
#include <functional>

#include "base/Commands.h"

class QVBoxLayout;

// One group picture of the command column.
class CommandGroupPanel : public QLabel {
    Q_OBJECT
public:
    CommandGroupPanel(int group, QWidget *parent);
    int group() const { return m_group; }
signals:
    void clicked(int group);
    void entered(int group);
    void left(int group);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    int m_group;
};

// One entry of the pop-up: a command, or a separator.
class PopupItem : public QLabel {
    Q_OBJECT
public:
    explicit PopupItem(QWidget *parent);
    void setEntry(const CommandEntry &entry, const QColor &back, const QColor &hot, const QColor &text);
    int number() const { return m_entry.number; }
    QString caption() const { return m_entry.caption; }
    bool isBold() const { return m_entry.bold; }
signals:
    void chosen(int number);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void paintBack(const QColor &c);
    CommandEntry m_entry;
    QColor m_back, m_hot;
};

struct PanelColors {
    QColor text, background, accent, highlight, selectedText;
};

// The column of seven group pictures and the pop-up panel they open: the main window's menus.
class CommandPanels : public QWidget {
    Q_OBJECT
public:
    // popupHost: the widget the pop-up is drawn over (the main window's central widget).
    CommandPanels(QWidget *popupHost, QWidget *parent);

    // What the pop-up needs to know when it opens: the view in force and the current mark.
    void setStateSource(std::function<int()> currentView, std::function<bool()> currentMarked);
    void setColors(const PanelColors &colors);

    void ShowCommandPopup(int group);
    void CloseCommandPopup();
    bool popupOpen() const;
    // Closes the pop-up without touching the pictures, as a key without Ctrl does.
    void hidePopup();
    // True when a mouse press on this widget should leave the pop-up open.
    bool ownsWidget(const QWidget *w) const;
    QFrame *popup() const { return pnlPopup; }
    QList<PopupItem *> visibleItems() const;

signals:
    void command(int number);
    void hint(const QString &text);

private:
    void AddPopupItem(const CommandEntry &entry);
    void setPicture(int group, int state);
    void pnlMenu_Click(int group);
    void pnlMenu_MouseEnter(int group);
    void pnlMenu_MouseLeave(int group);

    QWidget *m_host;
    QList<CommandGroupPanel *> pnlMenu;
    QFrame *pnlPopup;
    QVBoxLayout *m_popupLayout;
    QList<PopupItem *> pnlPopupItem;
    int popupItemCount = 0;
    int m_openGroup = -1;
    PanelColors m_colors;
    std::function<int()> m_currentView;
    std::function<bool()> m_currentMarked;
};
