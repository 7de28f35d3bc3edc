#include "desktop/frame_host.h"

#include "app/copy_keeping.h"
#include "app/copy_notice.h"
#include "app/gone_records.h"
#include "desktop/copies/copy_work.h"
#include "desktop/screen_size.h"
#include "desktop/window_place.h"
#include "platform/icu/icu_locales.h"
#include "platform/posix/flock_mutex.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "platform/sqlite/sqlite_registry.h"
#include "platform/sqlite/sqlite_store_copies.h"
#include "platform/utf.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <algorithm>

namespace hourwright::desktop {

namespace {

constexpr int firstWidth = 1000;
constexpr int firstHeight = 640;
constexpr const char* activationVariable = "XDG_ACTIVATION_TOKEN";

platform::Locales localesOf(const app::StartOptions& options) {
    const auto given = options.locale.empty() ? std::nullopt : std::optional<std::string_view>(options.locale);
    return platform::makeLocales(given, platform::processEnvironment);
}

// Handhelds have soft keys.
app::SettingsDevice device() {
    const auto documents = platform::documentsDirectory(platform::processEnvironment);
    return {.osMajorVersion = isHandheld() ? 5U : 4U, .personalFolder = platform::toUtf16(documents.string())};
}

// A first window in the middle of the room, no larger than needed.
QRect firstPlace(const app::Rectangle& room) {
    QRect place(0, 0, std::min(firstWidth, room.width), std::min(firstHeight, room.height));
    place.moveCenter(QRect(room.left, room.top, room.width, room.height).center());
    return place;
}

} // namespace

FrameHost::FrameHost(const app::StartOptions& options, platform::Directories directories, platform::EventQueue& queue,
                     std::unique_ptr<platform::InstanceServer> server)
    : options_(options), directories_(std::move(directories)), queue_(queue), server_(std::move(server)),
      registry_(platform::openSqliteRegistry(directories_.settingsFile())), locales_(localesOf(options)),
      frame_(*this, *registry_, messages_, device()) {}

FrameHost::~FrameHost() {
    dailyCopy_.reset();
    timers_.reset();
    billing::TimerSet::shutDown();
}

bool FrameHost::create(const app::Rectangle& rectangle) {
    if (!frame_.create(rectangle))
        return false;
    static_cast<void>(frame_.use(options_)); // the first, so there is room
    if (server_) {
        server_->setHandler([this](const platform::InstanceMessage& message) { return answer(message); });
        notifier_ = std::make_unique<platform::QtInstanceNotifier>(*server_);
    }
    termination_ = std::make_unique<platform::QtTermination>([this] { endNow(); });
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, window_.get(), [this] { saveState(); });
    return true;
}

// What a start after this one finds again. Timers that run are offered to it.
void FrameHost::saveState() {
    savePlace(*window_, *registry_);
    frame_.settings().save(*registry_);
    timers_->control().writeJournal();
    drafts_->keep();
}

void FrameHost::watchDrafts() {
    draftJournal_ = platform::openSqliteRegistry(directories_.state / "drafts.db");
    drafts_ = std::make_unique<DraftKeeper>(*workspace_, *draftJournal_);
    drafts_->reopen = [this](const app::KeptRecord& record) {
        QDialog* dialog = window_->reopen(record);
        const auto* entry = std::get_if<app::KeptEntry>(&record);
        if (dialog != nullptr && entry != nullptr && entry->timer)
            QObject::connect(dialog, &QDialog::finished, window_.get(),
                             [this, timer = *entry->timer] { timers_->control().freeCompleted(timer); });
        return dialog;
    };
}

// Nobody is asked any more. A change that is being made is waited for; it ends by itself.
void FrameHost::endNow() {
    if (workspace_->isChanging()) {
        constexpr int again = 50; // milliseconds
        QTimer::singleShot(again, window_.get(), [this] { endNow(); });
        return;
    }
    saveState();
    frame_.end();
}

// The window makes its menus, of either kind, together with itself.
void FrameHost::createMenuBar(bool /*softKeys*/) {}

platform::PlatformError FrameHost::openRecords() {
    auto opened = platform::openSqliteObjectStore(directories_.recordsFile());
    objects_ = std::move(opened.store);
    if (!objects_)
        return opened.error;
    clientIdMutex_ = platform::makeNamedMutex(directories_.runtime, store::clientIdMutexName);
    stores_ = std::make_unique<store::Stores>(*objects_, *clientIdMutex_, *registry_);
    if (stores_->open())
        return platform::PlatformError::none;
    const platform::PlatformError error = objects_->lastError();
    stores_.reset();
    objects_.reset();
    return error == platform::PlatformError::none ? platform::PlatformError::openFailed : error;
}

app::OpenedStores FrameHost::openStores() {
    copies_ = platform::openStoreCopies(platform::copyPlaces(directories_));
    const auto now = clock_.localTime();
    app::restoreWishedCopy(*copies_, *registry_, now, messages_, runCopyWork);
    if (!app::settleGoneRecords(*copies_, directories_.recordsFile(), now, *locales_.user, messages_, runCopyWork))
        return {.declined = true};
    const platform::PlatformError error = openRecords();
    if (error == platform::PlatformError::fileCorrupt &&
        app::offerCopy(*copies_, now, *locales_.user, messages_, runCopyWork))
        static_cast<void>(openRecords()); // what it left open says whether it did
    return {.stores = stores_.get()};
}

void FrameHost::loadFilters() {
    workspace_ = std::make_unique<Workspace>(WorkspaceParts{.stores = *stores_,
                                                            .registry = *registry_,
                                                            .settings = frame_.settings(),
                                                            .locales = locales_,
                                                            .clock = clock_,
                                                            .messages = messages_,
                                                            .files = files_,
                                                            .shell = shell_,
                                                            .directories = directories_,
                                                            .variable = platform::processEnvironment,
                                                            .fileDialogs = &fileDialogs_});
    watch_ = std::make_unique<ChangeWatch>(*workspace_);
}

void FrameHost::createViews(const app::Rectangle& rectangle) {
    window_ = std::make_unique<MainWindow>(*workspace_);
    billing::TimerSet::provide(clock_, tick_);
    timerJournal_ = platform::openSqliteRegistry(directories_.state / "timers.db");
    timers_ =
        std::make_unique<TimerDesk>(*window_, billing::TimerSet::instance(), vibrator_, *timerJournal_, idleTime_);
    watchDrafts();
    dailyCopy_ = std::make_unique<DailyCopy>(*workspace_, std::move(copies_));
    QObject::connect(dailyCopy_.get(), &DailyCopy::restartWanted, window_.get(), [this] {
        if (!window_->close())
            app::forgetWishedCopy(*registry_);
    });
    window_->mayClose = [this] {
        savePlace(*window_, *registry_);
        drafts_->keep();
        if (!frame_.close())
            return false;
        timers_->control().forget();
        return true;
    };
    if (!isHandheld() && !restorePlace(*window_, *registry_))
        window_->setGeometry(firstPlace(rectangle));
}

// A new window stands on today in the period of the settings; it has read the records when it was made.
void FrameHost::showToday() {
    if (isHandheld())
        window_->showMaximized();
    else
        window_->show();
    timers_->start();
    drafts_->start();
    dailyCopy_->start();
}

void FrameHost::comeForward() {
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
    QWidget* const dialog = QApplication::activeModalWidget();
    for (QWidget* const widget : {static_cast<QWidget*>(window_.get()), dialog}) {
        if (widget == nullptr)
            continue;
        widget->raise();
        widget->activateWindow();
    }
}

void FrameHost::showPeriod(std::optional<app::PeriodKind> kind, const std::optional<platform::SystemTime>& date) {
    auto& view = workspace_->view();
    if (kind)
        view.setKind(*kind);
    if (date)
        view.setDate(*date);
    window_->showView();
}

void FrameHost::newEntry() {
    window_->commands().run(app::Command::newEntry);
}

unsigned FrameHost::timersInUse() const {
    return window_->timersInUse ? window_->timersInUse() : 0;
}

// The window's actions have their shortcuts in the toolkit, which looks for them next.
bool FrameHost::translateAccelerator(const platform::QueuedEvent& /*event*/) {
    return false;
}

std::optional<std::string> FrameHost::answer(const platform::InstanceMessage& message) {
    using enum platform::InstanceMessageKind;
    switch (message.kind) {
    case handOver: {
        const auto line = platform::handedOverLine(message);
        const bool taken = line && frame_.use(app::parseHandOverLine(*line));
        return taken ? std::optional<std::string>("") : std::nullopt;
    }
    case comeForward:
        if (!message.payload.empty())
            qputenv(activationVariable, QByteArray::fromStdString(message.payload));
        FrameHost::comeForward();
        return "";
    case dataChanged: watch_->noticed(); return "";
    case timerCommand: return window_->answerTimers ? window_->answerTimers(message.payload) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace hourwright::desktop
