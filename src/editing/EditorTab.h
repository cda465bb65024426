#pragma once

#include <QColor>
#include <QFrame>
#include <QPixmap>

class QLabel;

// One tab of the drink editor's page panel: a picture over a caption. Its background colour
// is the only record of which page is active.
class EditorTab : public QFrame {
    Q_OBJECT
public:
    EditorTab(int page, const QString &caption, QWidget *parent = nullptr);

    // The tab's three pictures: 1 active, 2 at rest, 3 under the mouse.
    enum Picture { Active = 1, Rest = 2, Hover = 3 };
    void setPicture(Picture picture);
    void setColors(const QColor &back, const QColor &text);
    QColor backColor() const;

signals:
    void clicked(int page);
    void hovered(int page, bool inside);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    int m_page;
    QLabel *m_picture, *m_caption;
    QColor m_text;
};

// The drawn picture of a page's tab: the page's sign in the given ink.
QPixmap EditorTabPicture(int page, EditorTab::Picture picture, const QColor &ink, int size = 32);
