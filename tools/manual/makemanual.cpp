// Renders the manual: makemanual TEXT PICTURES OUTPUT, with TEXT in HTML and PICTURES a folder.

#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextDocument>
#include <QUrl>

namespace {

/// A document that knows where its pictures lie and notes those that it does not find.
class Manual : public QTextDocument {
public:
    explicit Manual(const QString& pictures)
        : pictures(pictures) {}

    bool isComplete = true;

protected:
    QVariant loadResource(int type, const QUrl& name) override {
        if (type != QTextDocument::ImageResource)
            return {};
        const QImage picture(pictures + '/' + name.path());
        isComplete = isComplete && !picture.isNull();
        return picture;
    }

private:
    QString pictures;
};

bool makeManual(const QStringList& arguments) {
    QFile text(arguments.value(1));
    if (!text.open(QIODevice::ReadOnly))
        return false;
    Manual manual(arguments.value(2));
    manual.setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    manual.setDefaultStyleSheet(QStringLiteral("pre { font-family: 'DejaVu Sans Mono'; }"));
    manual.setHtml(QString::fromUtf8(text.readAll()));
    QPdfWriter writer(arguments.value(3));
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setTitle(QStringLiteral("Kestrova"));
    writer.setResolution(96);
    manual.print(&writer);
    return manual.isComplete;
}

} // namespace

int main(int argc, char* argv[]) {
    const QGuiApplication application(argc, argv);
    if (makeManual(QGuiApplication::arguments()))
        return 0;
    qCritical("The text or a picture of the manual cannot be read.");
    return 1;
}
