#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

// The general progress window for long batch work. It is not modal: the caller shows it, works,
// calls SetValue after each item (which lets pending events run) and reads WasCanceled.
class frmProgressDLG : public QWidget {
    Q_OBJECT
public:
    enum TextStyle { OfMaximum = 0, Remaining = 1, Completed = 2 };

    explicit frmProgressDLG(QWidget *parent = nullptr);

    // Sets the bar and keeps the rest; without allowCancel the button is disabled. Shows the
    // first text.
    void Setup(qint16 minimum, qint16 maximum, qint32 textStyle, qint16 startValue, bool allowCancel,
               const QString &caption, const QString &unitName);
    void SetValue(qint16 value);
    bool WasCanceled() const { return m_canceled; }

public slots:
    void cmdCancel_Click();

private:
    void refresh();

    qint16 m_maximum = 0;
    qint16 m_value = 0;
    qint32 m_style = OfMaximum;
    QString m_unit;
    bool m_canceled = false;

    QProgressBar *progBar;
    QLabel *lblProgress;
    QPushButton *cmdCancel;
};
