// The view of a web view: Qt's browser for local pages.
#include "desktop_qt/views.h"
#include "foundation/code_page_1252.h"
#include "toolkit/web_view.h"

#include <QtCore/QFileInfo>
#include <QtWidgets/QTextBrowser>

namespace {

constexpr qint64 largest_file = 32 * 1024 * 1024;

// Reads local files only, and none that could hold the program up.
class Browser : public QTextBrowser {
public:
    explicit Browser(QWidget* parent) : QTextBrowser(parent) { setOpenLinks(false); }

    QVariant loadResource(int type, const QUrl& name) override {
        const QFileInfo file(source().resolved(name).toLocalFile());
        if (!file.isFile() || file.size() > largest_file)
            return QByteArray();
        const QVariant loaded = QTextBrowser::loadResource(type, name);
        return type == QTextDocument::HtmlResource ? decoded(loaded.toByteArray()) : loaded;
    }

private:
    // A page that does not say its character set is in UTF-8, or else as the suite's own files are.
    static QVariant decoded(const QByteArray& bytes) {
        const bool tells = bytes.startsWith("\xFE\xFF") || bytes.startsWith("\xFF\xFE") ||
                           bytes.left(2048).toLower().contains("charset");
        if (tells || QString::fromUtf8(bytes).toUtf8() == bytes)
            return bytes;
        return to_qt(TESK::utf8_from_code_page({bytes.data(), static_cast<std::size_t>(bytes.size())}));
    }
};

class Web_view : public View_of<TWebView, Browser> {
public:
    Web_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Browser(parent)) {
        connect(&widget(), &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { follow(link); });
    }

protected:
    void show_state() override {
        const std::string& address = control().address();
        if (is_web_address(address)) {
            const QString link = to_qt(address).toHtmlEscaped();
            widget().setHtml("<p><a href=\"" + link + "\">" + link + "</a></p>");
            return;
        }
        const QUrl url = local_page(address);
        if (!QFileInfo(url.toLocalFile()).isFile())
            widget().clear();
        else if (url == widget().source())
            widget().reload();
        else
            widget().setSource(url);
    }
    void settle() override {}

private:
    // A "#" may also be part of a file's name.
    QUrl local_page(const std::string& address) const {
        const QUrl whole = QUrl::fromLocalFile(to_qt(context().host_path(address)));
        const std::size_t mark = address.rfind('#');
        if (mark == std::string::npos || QFileInfo::exists(whole.toLocalFile()))
            return whole;
        QUrl page = QUrl::fromLocalFile(to_qt(context().host_path(address.substr(0, mark))));
        page.setFragment(to_qt(address.substr(mark + 1)));
        return page;
    }

    void follow(const QUrl& link) {
        const QUrl target = widget().source().resolved(link);
        const std::string text = from_qt(target.toString(QUrl::FullyEncoded));
        if (target.isLocalFile()) {
            const QString place = target.hasFragment() ? "#" + target.fragment() : QString();
            act([&] {
                control().follow(context().program_name(from_qt(target.toLocalFile())) + from_qt(place));
            });
        } else if (is_web_address(text)) {
            act([&] { control().follow(text); });
        }
    }
};

} // namespace

View& make_web_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Web_view(context, control, parent);
}
