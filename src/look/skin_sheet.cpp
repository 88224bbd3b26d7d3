#include "look/skin_sheet.h"

#include <QApplication>
#include <QFontMetrics>
#include <algorithm>

#include "look/sheet_pictures.h"

namespace {

struct NamedRole {
  const char* name;
  Role role;
};

constexpr NamedRole kRoles[] = {
    {"window", Role::kWindow},
    {"surface", Role::kSurface},
    {"field", Role::kField},
    {"head", Role::kHead},
    {"text", Role::kText},
    {"muted", Role::kMuted},
    {"line", Role::kLine},
    {"edge", Role::kEdge},
    {"accent", Role::kAccent},
    {"accentText", Role::kAccentText},
    {"accentHover", Role::kAccentHover},
    {"focus", Role::kFocus},
    {"link", Role::kLink},
    {"sel", Role::kSel},
    {"groupText", Role::kGroupText},
    {"disabled", Role::kDisabled},
    {"disabledFill", Role::kDisabledFill},
    {"hover", Role::kHover},
    {"press", Role::kPress},
};

/// {role}, {picture} and {height} are filled in; frame shapes 4 and 5 are QFrame::HLine and VLine.
/// Text fields take their text's colour from the palette: a colour here would fade their
/// placeholder. A content height of 24 and a border of 1 above and below make a control of 26; a
/// focused one has a border of 2 and as much less inside, so nothing moves. A height is that of a
/// usual font: a larger one adds the same to all.
constexpr char kSheet[] = R"(
QDialog { background: {window}; }
QToolTip { background: {surface}; color: {text}; border: 1px solid {edge}; padding: 3px; }

QFrame[card="true"] {
  background: {surface}; border: 1px solid {line}; border-radius: 6px;
}
QGroupBox { border: none; margin: 0; padding: 0; background: transparent; color: {groupText}; }
QGroupBox::title { subcontrol-origin: margin; subcontrol-position: top left; padding: 0; }
QFrame[rule="true"] { background: {line}; border: none; }
QFrame[rule="true"][frameShape="4"] { max-height: 1px; }
QFrame[rule="true"][frameShape="5"] { max-width: 1px; }

QLabel { background: transparent; }
QLabel[title="true"] { color: {groupText}; font-weight: 600; }
QLabel[strong="true"] { font-weight: 600; }
QLabel[muted="true"] { color: {muted}; }
QLabel:disabled { color: {disabled}; }

QPushButton, QToolButton {
  background: {surface}; color: {text}; border: 1px solid {edge}; border-radius: 4px;
  min-height: {24}; padding: 0 8px; outline: none;
}
QToolButton { padding: 0 5px; }
QPushButton:hover, QToolButton:hover { background: {hover}; }
QPushButton:pressed, QToolButton:pressed, QPushButton:checked, QToolButton:checked,
QPushButton:open, QToolButton:open { background: {press}; }
QPushButton:focus, QToolButton:focus {
  border: 2px solid {focus}; min-height: {22}; padding: 0 7px;
}
QToolButton:focus { padding: 0 4px; }
QPushButton:disabled, QToolButton:disabled {
  background: {disabledFill}; color: {disabled}; border-color: {line};
}
QToolButton[scroll="true"] { padding: 0; }
QLineEdit QToolButton { background: transparent; border: none; min-height: 0; padding: 0; }
QToolButton::left-arrow { image: url("{left}"); width: 16px; height: 16px; }
QToolButton::left-arrow:disabled { image: url("{leftDisabled}"); }
QToolButton::right-arrow { image: url("{right}"); width: 16px; height: 16px; }
QToolButton::right-arrow:disabled { image: url("{rightDisabled}"); }
QPushButton[command="true"] { min-height: {28}; padding: 0 11px; }
QPushButton[command="true"]:focus { min-height: {26}; padding: 0 10px; }
QPushButton[narrow="true"], QToolButton[narrow="true"] { padding: 0 5px; }
QPushButton[narrow="true"]:focus, QToolButton[narrow="true"]:focus { padding: 0 4px; }
QPushButton::menu-indicator, QToolButton::menu-indicator {
  subcontrol-origin: padding; subcontrol-position: center right;
  image: url("{downSmall}"); width: 12px; height: 12px; right: 3px;
}
QPushButton::menu-indicator:disabled, QToolButton::menu-indicator:disabled {
  image: url("{downSmallDisabled}");
}
QDialog QPushButton { min-height: {28}; padding: 0 10px; }
QDialogButtonBox QPushButton { min-width: 66px; }
QDialog QPushButton:focus { min-height: {26}; padding: 0 9px; }
QDialog QPushButton[narrow="true"] { min-height: {24}; padding: 0 5px; }
QDialog QPushButton[narrow="true"]:focus { min-height: {22}; padding: 0 4px; }

QPushButton[primary="true"]:enabled, QDialog QPushButton:default:enabled {
  background: {accent}; border-color: {accent}; color: {accentText}; font-weight: 600;
}
QPushButton[primary="true"]:hover:enabled, QDialog QPushButton:default:hover:enabled,
QPushButton[primary="true"]:pressed:enabled, QDialog QPushButton:default:pressed:enabled {
  background: {accentHover}; border-color: {accentHover};
}
QPushButton[primary="true"]:focus:enabled, QDialog QPushButton:default:focus:enabled {
  border-color: {text};
}

QPushButton[link="true"], QToolButton[link="true"] {
  background: transparent; border: 1px solid transparent; color: {link}; padding: 0 7px;
  min-width: 0; min-height: {20};
}
QPushButton[link="true"]:hover, QToolButton[link="true"]:hover {
  background: {hover}; text-decoration: underline;
}
QPushButton[link="true"]:focus, QToolButton[link="true"]:focus {
  border: 2px solid {focus}; padding: 0 6px; min-height: {18};
}

QLineEdit, QPlainTextEdit, QTextEdit, QAbstractSpinBox {
  background: {field}; border: 1px solid {edge}; border-radius: 4px;
  selection-background-color: {accent}; selection-color: {accentText};
}
QLineEdit, QAbstractSpinBox { min-height: {24}; padding: 0 6px; }
QLineEdit:focus, QAbstractSpinBox:focus {
  border: 2px solid {focus}; min-height: {22}; padding: 0 5px;
}
QLineEdit QToolButton { background: transparent; border: none; padding: 0; min-height: 0; }
QPlainTextEdit:focus, QTextEdit:focus { border: 2px solid {focus}; }
QLineEdit:disabled, QPlainTextEdit:disabled, QTextEdit:disabled, QAbstractSpinBox:disabled {
  background: {disabledFill}; border-color: {line};
}

QComboBox {
  background: {field}; color: {text}; border: 1px solid {edge}; border-radius: 4px;
  min-height: {24}; padding: {comboPadding}; combobox-popup: 0;
}
QComboBox:hover { background: {hover}; }
QComboBox:on { background: {press}; }
QComboBox:focus { border: 2px solid {focus}; min-height: {22}; padding: {comboFocusPadding}; }
QComboBox:disabled { background: {disabledFill}; color: {disabled}; border-color: {line}; }
QComboBox::drop-down { border: none; width: 20px; }
QComboBox::down-arrow { image: url("{down}"); width: 16px; height: 16px; }
QComboBox::down-arrow:disabled { image: url("{downDisabled}"); }
QComboBox QLineEdit { border: none; padding: 0; min-height: {22}; }
QComboBox QAbstractItemView, QListView[offers="true"] {
  background: {field}; color: {text}; border: 1px solid {edge}; border-radius: 0; outline: none;
  selection-background-color: {sel}; selection-color: {text};
}
QComboBox QAbstractItemView::item, QListView[offers="true"]::item { min-height: {24}; padding: 0 6px; border: none; }
QComboBox QAbstractItemView::item:selected, QComboBox QAbstractItemView::item:hover,
QListView[offers="true"]::item:selected, QListView[offers="true"]::item:hover {
  background: {sel}; color: {text};
}

QCheckBox, QRadioButton {
  color: {text}; background: transparent; spacing: 5px; min-height: {18}; padding: 0 2px;
  border: 2px solid transparent; border-radius: 4px; outline: none;
}
QCheckBox:focus, QRadioButton:focus { border-color: {focus}; }
QCheckBox:disabled, QRadioButton:disabled { color: {disabled}; }
QCheckBox::indicator, QAbstractItemView::indicator, QGroupBox::indicator {
  width: 14px; height: 14px; border: 1px solid {edge}; border-radius: 4px; background: {field};
}
QCheckBox::indicator:hover { border-color: {focus}; background: {hover}; }
QCheckBox::indicator:checked, QAbstractItemView::indicator:checked, QGroupBox::indicator:checked {
  width: 16px; height: 16px; border: none; background: {accent}; image: url("{tick}");
}
QCheckBox::indicator:checked:hover { background: {accentHover}; }
QCheckBox::indicator:disabled { border-color: {line}; background: {disabledFill}; }
QCheckBox::indicator:checked:disabled { background: {line}; image: url("{tickDisabled}"); }

QTabWidget::pane {
  background: {surface}; border: 1px solid {line}; border-radius: 6px;
  {firstTabCorner}: 0; top: -1px;
}
QTabWidget::tab-bar { left: 0; }
QTabWidget > QTabBar { background: transparent; }
QTabWidget > QTabBar::tab {
  background: transparent; color: {muted}; border: 1px solid transparent;
  border-top-left-radius: 6px; border-top-right-radius: 6px; min-height: {23}; padding: 0 11px;
  margin-right: 3px;
}
QTabWidget > QTabBar::tab:selected {
  background: {surface}; color: {text}; border-color: {line}; border-bottom-color: {surface};
}
QTabWidget > QTabBar::tab:hover:!selected { color: {text}; background: {hover}; }
QTabWidget > QTabBar::tab:selected:focus { border: 2px solid {focus}; min-height: {21}; padding: 0 10px; }
QTabWidget > QTabBar::tab:disabled { color: {disabled}; }
QTabWidget[optionPages="true"]::pane {
  background: transparent; border: none; border-radius: 0; border-top: 1px solid {line}; top: -1px;
}
QTabWidget[optionPages="true"] > QTabBar::tab {
  background: transparent; color: {muted}; border: none; border-bottom: 2px solid transparent;
  border-radius: 0; min-height: {22}; padding: 0 10px; margin-right: 4px;
}
QTabWidget[optionPages="true"] > QTabBar::tab:selected {
  color: {groupText}; border-bottom-color: {focus};
}
QTabWidget[optionPages="true"] > QTabBar::tab:hover:!selected {
  color: {text}; background: {hover};
}
QTabWidget[optionPages="true"] > QTabBar::tab:selected:focus {
  border: 2px solid {focus}; min-height: {20}; padding: 0 8px; border-radius: 4px;
}
QTabWidget[optionPages="true"] > QTabBar::tab:disabled { color: {disabled}; }
QTabWidget[optionPages="true"] > QTabBar::tab:selected:disabled {
  color: {disabled}; border-bottom-color: {line};
}

QAbstractItemView {
  background: {field}; color: {text}; border: 1px solid {line}; border-radius: 6px;
  selection-background-color: {sel}; selection-color: {text}; outline: none;
}
QTableView { gridline-color: transparent; }
QHeaderView { background: {head}; border: none; border-radius: 0; }
QTableView > QHeaderView { border-top-left-radius: 5px; border-top-right-radius: 5px; }
QHeaderView::section {
  background: transparent; color: {muted}; border: none; border-right: 1px solid {line};
  border-bottom: 1px solid {line}; padding: 0 6px; font-weight: normal;
}
QHeaderView::section:last { border-right: none; }
QHeaderView::section:hover { color: {text}; }
QTableCornerButton::section { background: {head}; border: none; }

QScrollBar { background: transparent; border: none; margin: 0; }
QScrollBar:vertical { width: 12px; }
QScrollBar:horizontal { height: 12px; }
QScrollBar::handle { background: {edge}; border-radius: 3px; }
QScrollBar::handle:vertical { min-height: 28px; margin: 2px 2px 2px 3px; }
QScrollBar::handle:horizontal { min-width: 28px; margin: 3px 2px 2px 2px; }
QScrollBar::handle:hover, QScrollBar::handle:pressed { background: {muted}; }
QScrollBar::handle:disabled { background: {line}; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; border: none; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QAbstractScrollArea::corner { background: transparent; border: none; }

QProgressBar {
  background: {field}; border: 1px solid {edge}; border-radius: 5px; min-height: 8px;
  max-height: 8px; color: transparent;
}
QProgressBar::chunk { background: {accent}; border-radius: 4px; }

QStatusBar { background: {head}; color: {muted}; border-top: 1px solid {line}; min-height: {26}; }
QStatusBar::item { border: none; }
QStatusBar QLabel { color: {muted}; }

QMenu { background: {surface}; color: {text}; border: 1px solid {edge}; padding: 4px; }
QMenu::item { padding: {menuPadding}; border-radius: 4px; }
QMenu::item:selected { background: {sel}; color: {text}; }
QMenu::item:disabled { color: {disabled}; background: transparent; }
QMenu::separator { height: 1px; background: {line}; margin: 4px 6px; }

QMessageBox {
  messagebox-warning-icon: url("{warning}"); messagebox-critical-icon: url("{critical}");
}
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
)";

// The heights that the sheet names.
constexpr int kLeastHeight = 18, kGreatestHeight = 28;
constexpr int kLine = 16;

/// A style sheet's height holds even where the text needs more. A line of this much has room in
/// all.
int AddedHeight() {
  return std::max(0, QFontMetrics(QApplication::font()).height() - kLine);
}

/// What a style sheet doesn't mirror by itself on a desktop that is read from right to left.
struct Side {
  const char* name;
  const char* left_to_right;
  const char* right_to_left;
};
constexpr Side kSides[] = {
    {"comboPadding", "0 1px 0 7px", "0 7px 0 1px"},
    {"comboFocusPadding", "0 0 0 6px", "0 6px 0 0"},
    {"menuPadding", "4px 20px 4px 12px", "4px 12px 4px 20px"},
    {"firstTabCorner", "border-top-left-radius", "border-top-right-radius"},
};

QString Placeholder(const char* name) {
  return u'{' + QString::fromLatin1(name) + u'}';
}

}  // namespace

QString SkinSheet() {
  const Look& look = Look::Current();
  QString sheet = QString::fromLatin1(kSheet);
  for (const NamedRole& row : kRoles) {
    sheet.replace(Placeholder(row.name), look.Colour(row.role).name());
  }
  for (const SheetPicture& picture : kSheetPictures) {
    sheet.replace(Placeholder(picture.name),
                  QStringLiteral(":/look/") + picture.FileName(look.Dark()));
  }
  for (const Side& side : kSides) {
    sheet.replace(
        Placeholder(side.name),
        QLatin1String(QApplication::isRightToLeft() ? side.right_to_left : side.left_to_right));
  }
  for (int height = kLeastHeight; height <= kGreatestHeight; ++height) {
    sheet.replace(u'{' + QString::number(height) + u'}',
                  QString::number(height + AddedHeight()) + QStringLiteral("px"));
  }
  return sheet;
}
