// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

namespace demo {

/// The texts of the user interface and of the command line's help. The code names them by key;
/// texts/interface.json, which is compiled in, has the text of each key.
class Text {
    Q_GADGET

public:
    enum Key {
        // The window.
        ApplicationName,
        ApplicationSubtitle,
        EntryCount,
        EntryList,
        PreviousEntry,
        NextEntry,
        EntryPosition,
        WordCount,
        NoteButton,
        NoteButtonHint,
        NoteTitle,
        NoteText,
        NoteHint,
        PanelButton,
        PanelButtonHint,

        // The purchase sheet.
        PurchaseTitle,
        PurchaseHeading,
        PurchaseOffer,
        PurchaseLater,
        PurchaseNow,

        // The panel.
        PanelTitle,
        PanelEvents,
        PanelShowTab,
        PanelLookTab,
        PanelBannerTab,
        PanelHostTab,
        PanelReaderTab,
        PanelStateTab,
        Seconds,

        // The events in it.
        EventRemoveAdsClicked,
        EventBannerClicked,
        EventVideoClicked,
        EventVideoStarted,
        EventVideoStopped,
        EventSplashScreenWillShow,
        EventSplashScreenShown,
        EventSplashScreenAgain,
        EventSplashScreenClosed,
        EventRefused,
        EventAdsRemoved,
        EventAdsReset,
        EventLinkOpened,

        // Its page Show.
        ShowRequests,
        ShowIfDue,
        ShowNow,
        ShowSoon,
        ShowVideoOnly,
        ShowWaitAgain,
        ShowTimes,
        ShowLoadTime,
        ShowWaitTime,
        ShowDelay,
        ShowDelayHint,
        ShowDefaultVideo,
        ShowVideo,
        ShowNoVideo,
        ShowBundledVideo,
        ShowVideoLink,
        ShowVideoLinkHint,

        // Its page Look.
        LookPresets,
        LookAppearance,
        LookLight,
        LookDark,
        LookFollowsHost,
        LookDay,
        LookNight,
        LookColors,
        LookBackgroundColor,
        LookTextColor,
        LookRing,
        LookSecondsColor,
        LookDiscColor,
        LookTrackColor,
        LookElapsedColor,
        LookTrackWidth,
        LookElapsedWidth,
        LookPictures,
        LookBackgroundPicture,
        LookNoPicture,
        LookNightPicture,
        LookScaling,
        LookScaledDown,
        LookStretched,
        LookUnscaled,
        LookScaledToFit,
        LookIcon,
        LookSailIcon,
        LookLighthouseIcon,
        LookPlace,
        LookTopInset,
        LookThisWindowOnly,
        LookHidden,
        LookHiddenIcon,
        LookHiddenIconBefore,
        LookHiddenIconAfter,
        LookHiddenBackground,
        LookHiddenBackgroundBefore,
        LookHiddenBackgroundAfter,
        LookHiddenButtonBefore,
        LookHiddenButtonAfter,

        // Its page Banner.
        BannerSize,
        BannerLarge,
        BannerSmall,
        BannerPlace,
        BannerBottom,
        BannerCentre,
        BannerEveryWindow,
        BannerReserveSpace,
        BannerThisWindow,
        BannerHide,
        BannerShow,

        // Its page Host.
        HostThisWindow,
        HostRegister,
        HostUnregister,
        HostRegisterGame,
        HostWindows,
        HostSecondWindow,
        HostAutoRemove,
        HostPurchase,
        HostRemoveAds,
        HostResetAds,
        HostEnvironment,
        HostServerAnswers,
        HostOpenBrowser,

        // Its page Reader.
        ReaderAtOnce,
        ReaderRightToLeft,
        ReaderReducedMotion,
        ReaderSpeech,
        ReaderAfterRestart,
        ReaderLanguage,
        ReaderSystemLanguage,
        ReaderScale,
        ReaderDark,
        ReaderRestart,

        // What a screen reader says.
        SpeechTitle,
        RoleButton,
        RoleCheckBox,
        RoleComboBox,
        RoleDialog,
        RoleEditor,
        RolePicture,
        RoleLink,
        RoleList,
        RoleProgressBar,
        RoleSlider,
        StateIsChecked,
        StateIsNotChecked,
        StateIsDisabled,

        // Its page State.
        StateSequence,
        StatePhase,
        StatePhaseClosed,
        StatePhaseStart,
        StatePhaseVideo,
        StatePhaseVideoCloseButton,
        StatePhaseEnd,
        StateOnScreen,
        StateAdsReady,
        StateFocus,
        StateRequested,
        StatePaused,
        StateElapsed,
        StateShownSoFar,
        StateWindows,
        StateMuted,
        StateAdsRemoved,
        StateAutoRemove,
        StateTimers,
        StateFirstStartTimer,
        StateWaitingTimer,
        StateCloseButtonTimer,
        StateTickTimer,
        StateResumeTickTimer,
        StateAdTable,
        StateBanners,
        StateVideos,
        StateAdCount,
        StateBannerDrawn,
        StateVideoDrawn,
        StateStill,
        StateYes,
        StateNo,

        // The command line's help.
        HelpDescription,
        HelpHelp,
        HelpCampaign,
        HelpDelay,
        HelpLoadTime,
        HelpWait,
        HelpLanguage,
        HelpScale,
        HelpDark,
        HelpRightToLeft,
        HelpReducedMotion,
    };
    Q_ENUM(Key)

    /// The text of a key. The first call, at the start of the program, reads the file; it ends the
    /// program with a message unless the file has exactly the keys above.
    static QString of(Key key);
};

} // namespace demo
