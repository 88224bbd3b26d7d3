#include "look/skin.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>
#include <QWidget>

#include "look/look.h"
#include "look/skin_style.h"

namespace {

/// What a program without its skin goes back to. A child of the application.
class Skin : public QObject {
 public:
  static Skin& Of(QApplication& application) {
    auto* skin =
        application.findChild<QObject*>(QStringLiteral("skin"), Qt::FindDirectChildrenOnly);
    return skin != nullptr ? static_cast<Skin&>(*skin) : *new Skin(application);
  }

  void Apply(bool on) {
    if (!on_) RememberDesktop();
    // First of all: widgets ask for it as soon as they hear of a new style.
    Look::Current().Choose(on, IsDark(desktop_));
    if (on == on_) return;
    on_ = on;
    if (on) {
      PutOn();
    } else {
      TakeOff();
    }
  }

 private:
  explicit Skin(QApplication& application) : QObject(&application) {
    setObjectName(QStringLiteral("skin"));
  }

  void RememberDesktop() {
    desktop_ = QApplication::palette();
    palette_was_set_ = QCoreApplication::testAttribute(Qt::AA_SetPalette);
    style_ = QApplication::style()->name();
  }

  void PutOn() {
    const bool user_chose = qEnvironmentVariableIsSet("QT_STYLE_OVERRIDE");
    QApplication::setPalette(SkinPalette());
    QApplication::setStyle(new SkinStyle(user_chose ? style_ : QStringLiteral("fusion")));
  }

  void TakeOff() {
    // An empty palette gives the desktop's back, and follows it from then on.
    QApplication::setPalette(palette_was_set_ ? desktop_ : QPalette());
    QApplication::setStyle(style_);
  }

  bool on_ = false;
  QPalette desktop_;
  bool palette_was_set_ = false;
  QString style_;
};

}  // namespace

void ApplySkin(QApplication& application, bool skin_on) {
  Skin::Of(application).Apply(skin_on);
}

void MeasureAnew() {
  QEvent change(QEvent::StyleChange);
  for (QWidget* widget : QApplication::allWidgets()) QCoreApplication::sendEvent(widget, &change);
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::WindowText).lightness() >
         palette.color(QPalette::Window).lightness();
}

QPalette SkinPalette() {
  const Look& look = Look::Current();
  QPalette palette(look.Colour(Role::kSurface), look.Colour(Role::kWindow));
  const struct {
    QPalette::ColorRole part;
    Role role;
  } table[] = {
      {QPalette::Window, Role::kWindow},
      {QPalette::WindowText, Role::kText},
      {QPalette::Base, Role::kField},
      {QPalette::AlternateBase, Role::kHead},
      {QPalette::Text, Role::kText},
      {QPalette::PlaceholderText, Role::kMuted},
      {QPalette::Button, Role::kSurface},
      {QPalette::ButtonText, Role::kText},
      {QPalette::BrightText, Role::kAccentText},
      {QPalette::Highlight, Role::kAccent},
      {QPalette::HighlightedText, Role::kAccentText},
      {QPalette::Link, Role::kLink},
      {QPalette::LinkVisited, Role::kLink},
      {QPalette::ToolTipBase, Role::kSurface},
      {QPalette::ToolTipText, Role::kText},
      {QPalette::Light, Role::kSurface},
      {QPalette::Midlight, Role::kHover},
      {QPalette::Mid, Role::kLine},
      {QPalette::Dark, Role::kEdge},
      {QPalette::Shadow, Role::kEdge},
  };
  for (const auto& row : table) palette.setColor(row.part, look.Colour(row.role));
  for (const auto part :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText}) {
    palette.setColor(QPalette::Disabled, part, look.Colour(Role::kDisabled));
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, look.Colour(Role::kDisabledFill));
  palette.setColor(QPalette::Disabled, QPalette::Button, look.Colour(Role::kDisabledFill));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, look.Colour(Role::kLine));
  return palette;
}
