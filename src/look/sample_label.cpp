#include "look/sample_label.h"

#include "platform/qt/text_qt.h"

SampleLabel::SampleLabel(const char* name, QWidget* parent)
    : ElidedLabel(name, Qt::ElideMiddle, parent) {
  ShowSample({});
}

void SampleLabel::ShowSample(std::string_view sample) {
  setText(tr("Example: ") + text::Shown(sample));
}
