#pragma once

#include <QColor>
#include <QLabel>
#include <QWidget>
#include <array>

// One of the 27 letter tabs above the main list: "0-9", then "A" to "Z".
class LetterTab : public QLabel {
    Q_OBJECT
public:
    LetterTab(int number, QWidget *parent);
    int number() const { return m_number; }

signals:
    void clicked(int number);
    void hovered(int number, bool inside);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    int m_number;
};

struct TabColors {
    QColor back, text, selectedBack, selectedText, hotBack;
};

// The row of letter tabs: normal, selected and hot looks, and the tab last chosen.
class LetterTabs : public QWidget {
    Q_OBJECT
public:
    explicit LetterTabs(QWidget *parent = nullptr);

    void setColors(const TabColors &colors);
    // Marks tab t selected (and the previous one normal) without telling anyone.
    void select(int t);
    int selected() const { return m_selected; }
    LetterTab *tab(int t) const { return m_tabs[size_t(t)]; }

signals:
    void tabClicked(int number);

private:
    void paintTab(int t, bool hot);
    std::array<LetterTab *, 27> m_tabs{};
    TabColors m_colors;
    int m_selected = -1;
};
