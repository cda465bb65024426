#include "shell/frmAboutBox.h"

#include "widgets/ApplyScheme.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

frmAboutBox::frmAboutBox(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAboutBox"));
    setWindowTitle(QStringLiteral("About Corvane"));
    auto *layout = new QVBoxLayout(this);

    auto *title = new QLabel(QStringLiteral("<h2>Corvane</h2>"
                                            "<p>The bartender's recipe book: find, make, price and print mixed drinks.</p>"),
                             this);
    title->setObjectName(QStringLiteral("lblTitle"));
    title->setWordWrap(true);
    layout->addWidget(title);

    lblVer = new QLabel(QStringLiteral("Version 6.0u"), this);
    lblVer->setObjectName(QStringLiteral("lblVer"));
    layout->addWidget(lblVer);

    auto *notice = new QLabel(QStringLiteral("Made for the people behind the bar. Your recipes stay on your own "
                                             "computer, in your own recipe book."),
                              this);
    notice->setObjectName(QStringLiteral("lblNotice"));
    notice->setWordWrap(true);
    layout->addWidget(notice);

    Thanks = new QFrame(this);
    Thanks->setObjectName(QStringLiteral("Thanks"));
    Thanks->setFrameShape(QFrame::StyledPanel);
    auto *thanksLayout = new QVBoxLayout(Thanks);
    auto *thanksText = new QLabel(QStringLiteral("Thanks to the bartenders who tested every recipe, to the "
                                                 "regulars who drank the mistakes, and to everyone who sent in "
                                                 "their house specials."),
                                  Thanks);
    thanksText->setWordWrap(true);
    thanksLayout->addWidget(thanksText);
    Thanks->hide();
    layout->addWidget(Thanks);

    auto *buttons = new QHBoxLayout();
    Command1 = new QPushButton(QStringLiteral("&Thanks To..."), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    connect(Command1, &QPushButton::clicked, this, &frmAboutBox::Command1_Click);
    auto *done = new QPushButton(QStringLiteral("OK"), this);
    done->setObjectName(QStringLiteral("Done"));
    done->setDefault(true);
    connect(done, &QPushButton::clicked, this, &QDialog::accept);
    buttons->addWidget(Command1);
    buttons->addStretch(1);
    buttons->addWidget(done);
    layout->addLayout(buttons);
    setMinimumWidth(380);

    // Form_Load
    ApplySchemeToForm(this);
}

void frmAboutBox::Command1_Click()
{
    const bool show = Thanks->isHidden();
    Thanks->setVisible(show);
    Command1->setText(show ? QStringLiteral("&Done") : QStringLiteral("&Thanks To..."));
}
