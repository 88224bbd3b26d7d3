#include "window/about_box.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/language.h"
#include "common/shell_actions.h"
#include "errors/send_mail.h"
#include "look/card.h"
#include "look/handlers.h"
#include "look/link_button.h"
#include "look/look.h"
#include "picture/animated_picture.h"
#include "platform/build_facts.h"
#include "platform/qt/text_qt.h"
#include "platform/system_facts.h"

namespace {

using namespace mLanguageGobals;

constexpr int kIconSize = 64;
constexpr int kIconGap = 16;
constexpr qreal kNameSize = 1.5;  ///< of the other texts'

}  // namespace

Form10::Form10(const Services& services, QWidget* parent)
    : DialogFrame("Form10", tr("About %1").arg(QLatin1String(build_facts::kTitle)), Buttons::kOk,
                  parent),
      services_(services) {
  LayOut();
  bnOK->setFocus();
  KeepPlacement(services_.settings);
}

void Form10::LayOut() {
  auto* picIcon = new AnimatedPicture;
  picIcon->setObjectName(QStringLiteral("picIcon"));
  picIcon->setAccessibleName(QLatin1String(build_facts::kTitle));
  picIcon->setScaleMode(AnimatedPicture::ScaleMode::Fit);
  picIcon->setFixedSize(kIconSize, kIconSize);
  picIcon->setSource(QStringLiteral(":/icons/quorvane.gif"));

  // Each line stands beside the icon, also where that is at the right.
  auto* texts = new QVBoxLayout;
  texts->setSpacing(measure::kControlGap);
  QLabel* lbName = NewLine("lbName", QLatin1String(build_facts::kTitle));
  QFont large = lbName->font();
  large.setPointSizeF(kNameSize * lbName->fontInfo().pointSizeF());
  large.setWeight(QFont::DemiBold);
  lbName->setFont(large);
  texts->addWidget(lbName, 0, Qt::AlignLeft);
  texts->addWidget(NewLine("lbVersion", tr("Version %1, with Qt %2")
                                            .arg(text::Shown(services_.facts.ProgramVersion()),
                                                 QLatin1String(qVersion()))),
                   0, Qt::AlignLeft);
  texts->addLayout(NewLinks());
  texts->addWidget(
      NewLine("lbLicence",
              tr("© %1. All rights reserved.").arg(QString::fromUtf8(build_facts::kCopyright))),
      0, Qt::AlignLeft);
  texts->addStretch();

  auto* row = new QHBoxLayout;
  row->setSpacing(kIconGap);
  row->addWidget(picIcon, 0, Qt::AlignTop);
  row->addLayout(texts, 1);
  Body()->addLayout(row);
}

QGridLayout* Form10::NewLinks() {
  auto* links = new QGridLayout;
  links->setHorizontalSpacing(measure::kLabelGap);
  links->setVerticalSpacing(0);
  links->setColumnStretch(1, 1);
  OnSignal(AddLink(*links, "lnkWebsite", kWebsite, QLatin1String(build_facts::kWebsite)),
           &LinkButton::clicked, Handler("lnkWebsite_Click"), [this] { FollowWebsite(); });
  OnSignal(
      AddLink(*links, "lnkSupport", kTechnicalSupport, QLatin1String(build_facts::kSupportAddress)),
      &LinkButton::clicked, Handler("lnkSupport_Click"), [this] { BeginMail(); });
  return links;
}

QLabel* Form10::NewLine(const char* name, const QString& text) {
  auto* line = new QLabel(text, this);
  line->setObjectName(QLatin1String(name));
  line->setTextFormat(Qt::PlainText);
  return line;
}

LinkButton* Form10::AddLink(QGridLayout& lines, const char* name, std::string_view label,
                            const QString& shown) {
  const int row = lines.rowCount();
  auto* link = new LinkButton(shown, this);
  link->setObjectName(QLatin1String(name));
  link->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);  // an address is read whole
  link->setAccessibleDescription(text::Shown(label));
  lines.addWidget(NewLabel(text::Shown(label), link, this), row, 0, Qt::AlignLeft);
  lines.addWidget(link, row, 1, Qt::AlignLeft);
  return link;
}

void Form10::FollowWebsite() {
  mMain::ShellErrorMessage(services_.prompts, services_.shell.OpenLink(build_facts::kWebsite));
}

void Form10::BeginMail() {
  mMain::SendMail(services_.shell, {.Address = build_facts::kSupportAddress});
}
