#include "app/view/DockView.h"
#include "app/view/drag/DockDrops.h"
#include "tests/app/Fixture.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>

#include <gmock/gmock.h>

namespace quillary::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Target = DockDrops::Target;

const std::string mail = "/Applications/Mail.app";
const std::string notes = "/Applications/Notes.app";
const std::string folder = "/Users/ada/Documents";
const std::string music = "/Applications/Music.app";

/// LEFT's dock: Mail, Notes and a folder, then Music, which runs and is not pinned.
class DockDropsTest : public Desktop {
protected:
    void SetUp() override {
        startWith({mail, notes, folder});
        configure([](DockConfig& config) { config.magnification = Magnification::off; });
        platform.workspace().launch(music);
        platform.scheduler().advance(1);
    }
    void drop(const Target& target, const std::vector<ItemProvider>& items) {
        DockDrops(manager->models().front(), platform).drop(target, items);
        while (platform.scheduler().finishWork()) {
        }
    }
    void dropEntry(const std::string& on, const std::string& path) {
        drop({ItemId{on}}, {{.text = "quillary-item:" + path}});
    }
    void dropFiles(const Target& target, const std::vector<std::string>& paths) {
        std::vector<ItemProvider> items;
        items.reserve(paths.size());
        for (const auto& path : paths) {
            items.push_back({.fileUrl = "file://" + path});
        }
        drop(target, items);
    }
    const std::vector<std::string>& items() const { return model().config().items; }
    const std::vector<std::string>& asked() { return platform.workspace().calls; }
};

TEST_F(DockDropsTest, anEntryTakesThePlaceOfTheOneItIsDroppedOn) {
    dropEntry(folder, mail);
    EXPECT_THAT(items(), ElementsAre(notes, folder, mail));
    dropEntry(notes, mail);
    EXPECT_THAT(items(), ElementsAre(mail, notes, folder));
    EXPECT_EQ(stored().dock(leftKey)->items, items());
}

TEST_F(DockDropsTest, anEntryDroppedOnItselfChangesNothing) {
    dropEntry(notes, notes);
    EXPECT_THAT(items(), ElementsAre(mail, notes, folder));
}

TEST_F(DockDropsTest, anEntryDroppedOnARunningIconGoesToTheEnd) {
    dropEntry(music, mail);
    EXPECT_THAT(items(), ElementsAre(notes, folder, mail));
    dropEntry(music, mail);
    EXPECT_THAT(items(), ElementsAre(notes, folder, mail));
}

TEST_F(DockDropsTest, anEntryOfAnotherDockIsPinnedThere) {
    dropEntry(notes, "/Applications/Maps.app");
    EXPECT_THAT(items(), ElementsAre(mail, "/Applications/Maps.app", notes, folder));
}

TEST_F(DockDropsTest, aRunningIconIsPinnedWhereItIsDropped) {
    dropEntry(mail, music);
    EXPECT_THAT(items(), ElementsAre(music, mail, notes, folder));
}

TEST_F(DockDropsTest, aRunningIconDroppedOnItselfIsPinnedAtTheEnd) {
    dropEntry(music, music);
    EXPECT_THAT(items(), ElementsAre(mail, notes, folder, music));
}

TEST_F(DockDropsTest, filesOnTheBackgroundArePinnedAtTheEnd) {
    dropFiles({}, {"/tmp/a", "/tmp/b"});
    EXPECT_THAT(items(), ElementsAre(mail, notes, folder, "/tmp/a", "/tmp/b"));
}

TEST_F(DockDropsTest, filesOnAnApplicationAreOpenedWithIt) {
    dropFiles({ItemId{notes}}, {"/tmp/a", "/tmp/b"});
    EXPECT_THAT(asked(), ElementsAre("openWith " + notes + " /tmp/a /tmp/b"));
    EXPECT_THAT(items(), ElementsAre(mail, notes, folder));
    // An application too.
    dropFiles({ItemId{music}}, {mail});
    EXPECT_EQ(asked().back(), "openWith " + music + " " + mail);
}

TEST_F(DockDropsTest, filesOnAFolderArePinnedBeforeIt) {
    dropFiles({ItemId{folder}}, {"/tmp/a"});
    EXPECT_THAT(items(), ElementsAre(mail, notes, "/tmp/a", folder));
}

TEST_F(DockDropsTest, nonsenseChangesNothing) {
    drop({ItemId{mail}}, {{.text = "no prefix"}});
    drop({ItemId{mail}}, {{.text = "quillary-item:"}});
    drop({ItemId{mail}}, {{.text = "quillary-item:relative"}});
    drop({ItemId{mail}}, {{.text = "quillary-item:/bad\xff"}});
    drop({ItemId{mail}}, {});
    drop({}, {});
    drop({}, {{.text = "quillary-item:" + music}});
    drop({}, {{.fileUrl = "file://elsewhere/x"}});
    drop({ItemId{folder}}, {{.fileUrl = "file:///bad%ff"}});
    EXPECT_THAT(items(), ElementsAre(mail, notes, folder));
    EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(DockDropsTest, filesThatHaveGoneArePinnedAllTheSame) {
    platform.workspace().missing.insert("/tmp/gone");
    dropFiles({}, {"/tmp/gone"});
    EXPECT_THAT(items(), ElementsAre(mail, notes, folder, "/tmp/gone"));
}

TEST_F(DockDropsTest, aDockThatGoesWhileFilesAreReadIsNotCalledBack) {
    DockDrops(manager->models().front(), platform).drop({}, {{.fileUrl = "file:///tmp/a"}});
    platform.screens().set({});
    while (platform.scheduler().finishWork()) {
    }
    EXPECT_THAT(stored().dock(leftKey)->items, ElementsAre(mail, notes, folder));
}

TEST_F(DockDropsTest, tenThousandFilesArePinned) {
    std::vector<std::string> paths;
    paths.reserve(10000);
    for (int i = 0; i < 10000; ++i) {
        paths.push_back("/files/" + std::to_string(i));
    }
    dropFiles({}, paths);
    EXPECT_EQ(items().size(), 10003U);
}

/// The same with events on the dock's view. Icons are 48 wide, 54 apart; Mail's centre is at (46, 82) of the
/// panel, which is 206 + 48 wide.
class DragTest : public DockDropsTest {
protected:
    DockView& view() const { return const_cast<DockView&>(panel().contents()); }
    QPointF on(const std::string& path) const {
        for (const auto& icon : view().scene().icons) {
            if (icon.path == path) {
                return icon.rect.center();
            }
        }
        ADD_FAILURE() << "no icon for " << path;
        return {};
    }
    QPointF between() const { return on(mail) + QPointF(27, 30); }
    bool enter(QMimeData& data, QPointF place) const {
        QDragEnterEvent event(place.toPoint(), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(&view(), &event);
        return event.isAccepted();
    }
    bool move(QMimeData& data, QPointF place) const {
        QDragMoveEvent event(place.toPoint(), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                             Qt::NoModifier);
        QApplication::sendEvent(&view(), &event);
        return event.isAccepted();
    }
    void leave() const {
        QDragLeaveEvent event;
        QApplication::sendEvent(&view(), &event);
    }
    bool drop(QMimeData& data, QPointF place) {
        QDropEvent event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&view(), &event);
        while (platform.scheduler().finishWork()) {
        }
        return event.isAccepted();
    }
    bool backgroundAnswers() const { return view().scene().background.borderWidth == 2; }
    std::string highlighted() const {
        for (const auto& icon : view().scene().icons) {
            if (icon.highlight > 0) {
                return icon.path;
            }
        }
        return {};
    }

    QMimeData files;
    QMimeData entry;

    DragTest() {
        files.setUrls({QUrl(QStringLiteral("file:///tmp/a"))});
        entry.setText(QStringLiteral("quillary-item:") + QString::fromStdString(mail));
    }
};

TEST_F(DragTest, filesOverTheBackgroundLightItsBorder) {
    EXPECT_TRUE(enter(files, between()));
    EXPECT_TRUE(backgroundAnswers());
    EXPECT_EQ(highlighted(), "");
    EXPECT_TRUE(move(files, on(notes)));
    EXPECT_FALSE(backgroundAnswers());
    EXPECT_EQ(highlighted(), notes);
    leave();
    EXPECT_FALSE(backgroundAnswers());
    EXPECT_EQ(highlighted(), "");
}

TEST_F(DragTest, entriesAreTakenByIconsOnly) {
    enter(entry, between());
    EXPECT_FALSE(backgroundAnswers());
    EXPECT_FALSE(move(entry, between()));
    EXPECT_TRUE(move(entry, on(folder)));
    EXPECT_EQ(highlighted(), folder);
    EXPECT_TRUE(drop(entry, on(folder)));
    EXPECT_EQ(highlighted(), "");
    EXPECT_THAT(items(), ElementsAre(notes, folder, mail));
}

TEST_F(DragTest, aDropEndsTheAnswerAndActs) {
    enter(files, between());
    EXPECT_TRUE(drop(files, between()));
    EXPECT_FALSE(backgroundAnswers());
    EXPECT_THAT(items(), ElementsAre(mail, notes, folder, "/tmp/a"));
}

TEST_F(DragTest, everyDropOnATargetReportsAccepted) {
    QMimeData words;
    words.setText(QStringLiteral("words"));
    enter(words, on(mail));
    EXPECT_TRUE(drop(words, on(mail)));
    EXPECT_THAT(items(), ElementsAre(mail, notes, folder));
}

TEST_F(DragTest, aDragThatSaysNoGoodbyeIsOverWhenThePointerLeaves) {
    platform.pointer().moveTo(QPointF(panel().frame().topLeft()) + on(mail));
    enter(files, on(mail));
    EXPECT_EQ(highlighted(), mail);
    platform.pointer().moveTo({640, 100});
    EXPECT_EQ(highlighted(), "");
}

TEST_F(DragTest, ofTwoIconsOfAPathTheOneUnderTheDragTakesIt) {
    configure([](DockConfig& config) { config.items = {folder, mail, folder}; });
    platform.scheduler().advance(1);
    const auto& icons = view().scene().icons;
    const QPointF second = icons.at(2).rect.center();
    enter(files, second);
    EXPECT_EQ(icons.at(0).highlight, 0);
    EXPECT_GT(icons.at(2).highlight, 0);
    EXPECT_TRUE(drop(files, second));
    EXPECT_THAT(items(), ElementsAre(folder, mail, "/tmp/a", folder));
}

TEST_F(DragTest, anEntryDroppedOnTheSecondIconOfAPathTakesItsPlace) {
    configure([](DockConfig& config) { config.items = {mail, folder, notes, folder}; });
    platform.scheduler().advance(1);
    const QPointF second = view().scene().icons.at(3).rect.center();
    enter(entry, second);
    EXPECT_TRUE(drop(entry, second));
    EXPECT_THAT(items(), ElementsAre(folder, notes, folder, mail));
}

TEST_F(DragTest, draggingAnIconStartsBeyond4Points) {
    std::string started;
    QImage picture;
    view().startDrag = [&](const std::string& path, const QImage& shown) {
        started = path;
        picture = shown;
    };
    const auto send = [this](QEvent::Type type, QPointF place, Qt::MouseButtons buttons) {
        QMouseEvent event(type, place, place + panel().frame().topLeft(),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(&view(), &event);
    };
    const QPointF start = on(notes);
    send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    send(QEvent::MouseMove, start + QPointF(4, 0), Qt::LeftButton);
    turn();
    EXPECT_EQ(started, "");
    send(QEvent::MouseMove, start + QPointF(4, 1), Qt::LeftButton);
    turn();
    EXPECT_EQ(started, notes);
    EXPECT_EQ(picture.size(), QSize(48, 48));
    // That was no click.
    send(QEvent::MouseButtonRelease, start + QPointF(4, 1), Qt::NoButton);
    EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(DragTest, movementsOfThePointerStartADragWhereWindowsAreNotToldOfThem) {
    std::string started;
    view().startDrag = [&](const std::string& path, const QImage& /*picture*/) { started = path; };
    const QPointF start = on(notes);
    platform.pointer().moveTo(view().mapToGlobal(start - QPointF(9, 9)));
    QMouseEvent press(QEvent::MouseButtonPress, start, view().mapToGlobal(start), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&view(), &press);
    platform.pointer().moveTo(view().mapToGlobal(start + QPointF(0, 4)));
    turn();
    EXPECT_EQ(started, "");
    platform.pointer().moveTo(view().mapToGlobal(start + QPointF(1, 4)));
    turn();
    EXPECT_EQ(started, notes);
}

} // namespace
} // namespace quillary::test
