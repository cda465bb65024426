#include "widgets/frmProgressDLG.h"

#include "widgets/ApplyScheme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

frmProgressDLG::frmProgressDLG(QWidget *parent) : QWidget(parent, Qt::Dialog)
{
    setObjectName(QStringLiteral("frmProgressDLG"));
    progBar = new QProgressBar(this);
    progBar->setObjectName(QStringLiteral("progBar"));
    progBar->setTextVisible(false);
    lblProgress = new QLabel(this);
    lblProgress->setObjectName(QStringLiteral("lblProgress"));
    lblProgress->setAlignment(Qt::AlignCenter);
    cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cmdCancel, &QPushButton::clicked, this, &frmProgressDLG::cmdCancel_Click);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(progBar);
    layout->addWidget(lblProgress);
    auto *buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(cmdCancel);
    buttons->addStretch(1);
    layout->addLayout(buttons);
    setMinimumWidth(360);

    // Form_Load
    ApplySchemeToForm(this);
}

void frmProgressDLG::Setup(qint16 minimum, qint16 maximum, qint32 textStyle, qint16 startValue, bool allowCancel,
                           const QString &caption, const QString &unitName)
{
    progBar->setRange(minimum, maximum);
    m_maximum = maximum;
    m_style = textStyle;
    m_value = startValue;
    m_unit = unitName;
    cmdCancel->setEnabled(allowCancel);
    setWindowTitle(caption);
    refresh();
}

void frmProgressDLG::SetValue(qint16 value)
{
    m_value = value;
    refresh();
}

void frmProgressDLG::refresh()
{
    progBar->setValue(m_value);
    // Style 1 counts below the maximum, so its number is negative; styles 1 and 2 put two blanks
    // before their last word. Both are how the window has always read.
    switch (m_style) {
    case OfMaximum:
        lblProgress->setText(QString::number(m_value) + QStringLiteral(" of ") + QString::number(m_maximum) + u' ' +
                             m_unit);
        break;
    case Remaining:
        lblProgress->setText(QString::number(m_value - m_maximum) + u' ' + m_unit + u' ' +
                             QStringLiteral(" remaining"));
        break;
    case Completed:
        lblProgress->setText(QString::number(m_value) + u' ' + m_unit + u' ' + QStringLiteral(" completed"));
        break;
    default:
        break;
    }
    QApplication::processEvents();
}

void frmProgressDLG::cmdCancel_Click()
{
    m_canceled = true;
}
