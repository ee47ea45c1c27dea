#include "Gallery.h"

#include "GalleryWidgets.h"
#include "MainAppStyle.h"
#include "ScreenPicture.h"

#include <QApplication>
#include <QDir>
#include <QSaveFile>
#include <QTextStream>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{

constexpr int LiveTime = 1000; // ms

/// One way in which everything is photographed.
struct Look {
    bool isThemed;
    bool isEnabled;

    QString name() const
    {
        return QStringLiteral("%1, %2").arg(isThemed ? "theme" : "desktop",
                                            isEnabled ? "enabled" : "disabled");
    }
    QString fileName(const QString& widget, int size) const
    {
        return QStringLiteral("%1-%2-%3-%4.png")
            .arg(widget.section(QLatin1Char(','), 0, 0), isThemed ? "theme" : "desktop",
                 isEnabled ? "enabled" : "disabled")
            .arg(size);
    }
};

constexpr Look looks[] = {{false, true}, {false, false}, {true, true}, {true, false}};

/// The window of a host, in which one widget at a time stands.
class Stage : public QWidget
{
public:
    Stage() : m_style(this)
    {
        setAutoFillBackground(true);
        m_layout = new QVBoxLayout(this);
        m_layout->setSizeConstraint(QLayout::SetNoConstraint); // photograph() sees to the size
        QWidget* sizes = m_style.setFontSize(this);
        m_sizes = sizes->findChildren<QToolButton*>(QStringLiteral("sizeBtn"));
        sizes->hide();
    }

    int sizes() const { return m_sizes.size(); }
    void dress(bool isThemed, int size)
    {
        m_style.setMainStyle(isThemed);
        m_sizes.at(size)->click();
    }
    /// Takes the widget; the one before goes.
    void setWidget(QWidget* widget)
    {
        delete m_widget;
        m_widget = widget;
        widget->setWindowFlags(Qt::Widget);
        m_wanted = widget->testAttribute(Qt::WA_Resized) ? widget->size() : QSize(0, 0);
        m_layout->addWidget(widget);
        widget->show();
        MainAppStyle::setIconsToTextColor(widget);
    }
    QImage photograph(bool isEnabled, const GalleryWidget& what)
    {
        m_widget->setEnabled(isEnabled);
        move(0, 0);
        show();
        QApplication::processEvents(); // sizes follow the fonts
        m_layout->invalidate();
        const QMargins margins = m_layout->contentsMargins();
        resize(m_layout->totalSizeHint().expandedTo(m_wanted.grownBy(margins)));
        QApplication::processEvents();
        if (what.prepare)
            what.prepare(m_widget);
        if (what.isLive)
            ScreenPicture::run(LiveTime);
        return ScreenPicture::of(this);
    }
    void clear()
    {
        delete m_widget;
        m_widget = nullptr;
    }

private:
    MainAppStyle m_style;
    QVBoxLayout* m_layout;
    QList<QToolButton*> m_sizes;
    QWidget* m_widget = nullptr;
    QSize m_wanted;
};

/// Whether the picture is what it should be, as far as colours tell.
bool shows(const QImage& picture, const GalleryWidget& widget)
{
    const QList<QColor> colours = widget.isLive ? galleryColours() : QList<QColor>();
    return !ScreenPicture::isEmpty(picture) &&
           std::all_of(colours.begin(), colours.end(), [&picture](const QColor& colour) {
               return ScreenPicture::has(picture, picture.rect(), colour);
           });
}

QString page(const QList<GalleryWidget>& widgets, int sizes)
{
    QString html;
    QTextStream out(&html);
    out << "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>AXRGui widgets</title>\n"
           "<style>body{font-family:sans-serif} td{vertical-align:top;padding:6px} "
           "img{border:1px solid #ccc}</style></head><body>\n<h1>AXRGui widgets</h1>\n<p>";
    for (const GalleryWidget& widget : widgets)
        out << "<a href=\"#" << widget.name << "\">" << widget.name << "</a>\n";
    out << "</p>\n";
    for (const GalleryWidget& widget : widgets) {
        out << "<h2 id=\"" << widget.name << "\">" << widget.name << "</h2>\n<table>\n";
        for (const Look& look : looks) {
            out << "<tr><th>" << look.name() << "</th>";
            for (int size = 0; size < sizes; ++size)
                out << "<td><img src=\"" << look.fileName(QString::fromLatin1(widget.name), size)
                    << "\"></td>";
            out << "</tr>\n";
        }
        out << "</table>\n";
    }
    out << "</body></html>\n";
    return html;
}

} // namespace

bool Gallery::write() const
{
    if (!QDir().mkpath(m_folder))
        return false;
    const QDir folder(m_folder);
    const QList<GalleryWidget>& widgets = galleryWidgets();
    Stage stage;
    bool isFine = true;
    for (bool isThemed : {false, true}) {
        for (int size = 0; size < stage.sizes(); ++size) {
            stage.dress(isThemed, size);
            for (const GalleryWidget& widget : widgets) {
                stage.setWidget(widget.make());
                for (const Look& look : looks) {
                    if (look.isThemed != isThemed)
                        continue;
                    const QString file = look.fileName(QString::fromLatin1(widget.name), size);
                    const QImage picture = stage.photograph(look.isEnabled, widget);
                    if (!shows(picture, widget) || !picture.save(folder.filePath(file), "PNG")) {
                        QTextStream(stderr) << "axrworkbench: " << file
                                            << " is empty or without its curves, not on the "
                                               "screen as a whole, or cannot be written"
                                            << Qt::endl;
                        isFine = false;
                    }
                }
            }
            stage.clear();
        }
    }
    QSaveFile index(folder.filePath(QStringLiteral("index.html")));
    return index.open(QIODevice::WriteOnly) &&
           index.write(page(widgets, stage.sizes()).toUtf8()) > 0 && index.commit() && isFine;
}
