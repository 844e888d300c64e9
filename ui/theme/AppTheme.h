// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QStringList>

#include <optional>

class QWidget;

namespace ardeno {

// What a colour is for. The plain colours fill, dot and mark; the …Text ones are for letters and thin lines on the
// window's grounds, where they reach a contrast of 4.5 : 1.
enum class Role {
    Accent,
    AccentText,
    AccentSoft,
    OnAccent,
    Sage,
    SageText,
    SageSoft,
    Amber,
    AmberText,
    AmberSoft,
    Recording,
    RecordingText,
    Paper,
    Sidebar,
    Card,
    Field,
    Line,    // Between parts of the window, around cards.
    Outline, // Around what is pressed or typed into, with a contrast of 3 : 1.
    Hover,   // Over any background, below the pointer.
    Text,
    Dim,
    DimOnSoft, // Dim text on one of the …Soft grounds.
    Faint,     // Marks that carry no text.
    Placeholder,
    Scrim,
    PictureGround, // Beside a picture that does not fill its place.
    Brand,         // Of the application's own mark, whatever the accent.
    Count,
};

enum class Scheme { Light, Dark };
enum class Contrast { Normal, High };
enum class Motion { Normal, Reduced };

// What the user asked of every application.
struct Appearance {
    Scheme scheme = Scheme::Light;
    Contrast contrast = Contrast::Normal;
    Motion motion = Motion::Normal;
    QString iconTheme = {};          // Of the applications' icons; empty: as the platform has it.
    std::optional<QRgb> accent = {}; // Absent: the program's own.
    double textScale = 1;            // Over the size that the desktop's font has.

    bool operator==(const Appearance &) const = default;
};

enum class TextStyle {
    Title,
    Heading,
    SheetTitle,
    BarTitle,
    Strong,
    Medium,
    Body,
    Small,
    SmallStrong,
    Eyebrow,
    Tiny,
    Count,
};

// The colours and fonts of the interface. Main thread only.
class AppTheme final {
public:
    static AppTheme &instance();

    const QColor &color(Role role) const { return m_colors[static_cast<int>(role)]; }

    const Appearance &appearance() const { return m_appearance; }

    // Recomputes every role and hands the palette to the windows that follow.
    void setAppearance(const Appearance &appearance);

    // The window takes the theme's palette now and after every change, which repaints all it holds.
    void follow(QWidget *window);

    // A palette whose roles are those of the theme; labels take their colour from it, see paletteRole().
    const QPalette &palette() const { return m_palette; }

    // The palette's role that carries this colour for text.
    static QPalette::ColorRole paletteRole(Role role);

    // Sizes follow the desktop's font, of which 13 pixels are the normal size.
    const QFont &font(TextStyle style) const { return m_fonts[static_cast<int>(style)]; }

    QFont font(double pixels, QFont::Weight weight = QFont::Normal) const;

private:
    AppTheme();

    void compute();
    void takeAccent();
    void takeDesktopBackgrounds();
    void makeFonts();
    void scaleFonts(double textScale);

    Appearance m_appearance;
    QColor m_colors[static_cast<int>(Role::Count)];
    QPalette m_palette;
    QStringList m_families;                            // The first one, then those for what it does not have.
    QFont m_fonts[static_cast<int>(TextStyle::Count)]; // Kept: each copy finds what was measured with it.
    double m_desktopScale = 1;
    double m_scale = 1;
};

inline const QColor &themeColor(Role role)
{
    return AppTheme::instance().color(role);
}

} // namespace ardeno
