// SPDX-License-Identifier: Apache-2.0
#include "demo/JournalEntry.h"

namespace demo {

namespace {

using Motif = Scenery::Motif;

JournalEntry harbour() {
    return {
        QStringLiteral("Waiting for the tide"),
        QStringLiteral("West Cove, Ireland"),
        QStringLiteral("14 Jun"),
        QStringLiteral("Clear, 17°"),
        QStringLiteral("11 km on foot"),
        QStringLiteral("The harbour empties twice a day, and everyone here plans dinner "
                       "around it."),
        {QStringLiteral("We came down the hill just as the last boat settled on the mud, "
                        "leaning a little, the way a tired person leans on a door. A man in "
                        "a yellow coat told us there would be no crossing before six. He "
                        "said it kindly, as if the sea were a relative of his."),
         QStringLiteral("So we walked the long way round the headland. The path is narrow "
                        "and soft, thrift on both sides, and every few minutes the wind "
                        "brings the smell of someone’s turf fire. At the far end there is a "
                        "bench with a name carved into it and no view at all, because the "
                        "hedge has grown. We sat on it anyway."),
         QStringLiteral("At a quarter past six the boats stood up again, one by one. Nobody "
                        "looked surprised but us.")},
        {QColor(0x6f, 0xa9, 0xb8),
         QColor(0xf7, 0xd9, 0xb0),
         QColor(0xff, 0xf0, 0xc9),
         0.68,
         0.36,
         {{QColor(0x8f, 0xa8, 0xa8), 0.42, 0.12, 0.5}, {QColor(0x5d, 0x84, 0x86), 0.33, 0.1, 0.3}},
         QColor(0x2f, 0x66, 0x74),
         Motif::Sailboat,
         3}};
}

JournalEntry mountains() {
    return {QStringLiteral("A hut above the clouds"),
            QStringLiteral("Val Sorda, Dolomites"),
            QStringLiteral("2 Jul"),
            QStringLiteral("Fog, then sun"),
            QStringLiteral("1 240 m climbed"),
            QStringLiteral("For three hours we climbed through milk. Then somebody lifted the "
                           "lid."),
            {QStringLiteral("The warden had told us to start at five and to trust the red "
                            "marks. Both turned out to be good advice. Below the saddle we "
                            "could see one mark at a time, and our world was as large as a "
                            "kitchen."),
             QStringLiteral("Above it the peaks stood around like furniture in a room we had "
                            "only known in the dark. Nobody spoke. Then Jonas found the cheese, "
                            "and everybody did."),
             QStringLiteral("Slept badly, as one does up here, and gladly.")},
            {QColor(0x4f, 0x6d, 0x9a),
             QColor(0xf6, 0xc9, 0xa8),
             QColor(0xff, 0xe9, 0xc4),
             0.3,
             0.3,
             {{QColor(0xa0, 0xa3, 0xbd), 0.5, 0.2, 0.95},
              {QColor(0x6c, 0x78, 0x9b), 0.36, 0.17, 0.9},
              {QColor(0x3b, 0x52, 0x66), 0.17, 0.09, 0.5}},
             QColor(),
             Motif::Pines,
             7}};
}

JournalEntry desert() {
    return {QStringLiteral("Tea and a borrowed hat"),
            QStringLiteral("Erg Tamrit, Morocco"),
            QStringLiteral("21 Sep"),
            QStringLiteral("Dry, 34°"),
            QStringLiteral("19 km by camel"),
            QStringLiteral("Lesson one: the dune you climb is never the last one."),
            {QStringLiteral("Hassan walks in front and does not look back. He knows we are "
                            "there by the noise we make, which he describes as considerable. "
                            "The animals are called Tuesday, Wednesday and Mrs Brown."),
             QStringLiteral("In the afternoon the light gets heavy and the shadows turn blue. "
                            "We stop where there is nothing to stop for, and ten minutes later "
                            "there is a carpet, a fire, and tea so sweet that it rings."),
             QStringLiteral("I have never seen so many stars, nor so clearly understood that "
                            "they were not put there for me.")},
            {QColor(0xd9, 0x7f, 0x52),
             QColor(0xfb, 0xdc, 0xa6),
             QColor(0xff, 0xf3, 0xd2),
             0.74,
             0.3,
             {{QColor(0xe3, 0xa6, 0x6d), 0.42, 0.1, 0.15},
              {QColor(0xcf, 0x83, 0x4f), 0.3, 0.09, 0.1},
              {QColor(0xa9, 0x5c, 0x3a), 0.16, 0.06, 0.05}},
             QColor(),
             Motif::Dunes,
             2}};
}

JournalEntry lake() {
    return {QStringLiteral("One bell for every wish"),
            QStringLiteral("Lake Jasna, Slovenia"),
            QStringLiteral("8 Oct"),
            QStringLiteral("Still, 12°"),
            QStringLiteral("6 km by oar"),
            QStringLiteral("You row yourself across, ring the bell, and keep quiet about what "
                           "you asked for."),
            {QStringLiteral("The boats are older than the people who rent them out. Ours was "
                            "called Marjeta and pulled to the left with great conviction, so we "
                            "saw more of the eastern shore than we had planned."),
             QStringLiteral("On the island there are ninety-nine steps. The custom says that a "
                            "groom carries his bride up. We met a couple who had agreed to take "
                            "turns, and they were still laughing at the top."),
             QStringLiteral("Cream cake afterwards. The forest on the slopes has begun to "
                            "rust, and the whole lake rusts along with it.")},
            {QColor(0x7b, 0xb2, 0xbd),
             QColor(0xfb, 0xe6, 0xc4),
             QColor(0xff, 0xf6, 0xdf),
             0.22,
             0.28,
             {{QColor(0xa9, 0xbf, 0xc6), 0.5, 0.17, 0.85},
              {QColor(0x7a, 0x96, 0x8c), 0.37, 0.1, 0.4},
              {QColor(0xb9, 0x7b, 0x49), 0.29, 0.05, 0.3}},
             QColor(0x3f, 0x7c, 0x86),
             Motif::Church,
             5}};
}

JournalEntry lighthouse() {
    return {
        QStringLiteral("Night shift on the rock"),
        QStringLiteral("Outer Hebrides, Scotland"),
        QStringLiteral("30 Oct"),
        QStringLiteral("Gale 8, easing"),
        QStringLiteral("214 steps up"),
        QStringLiteral("The keeper has been a machine since 1988, but someone still brings "
                       "it flowers."),
        {QStringLiteral("Morag has the key because her father had the job. She goes up "
                        "every Friday, wipes the salt off the glass and reads the paper in "
                        "the lamp room, because the light is good, she says, and waits for "
                        "us to get the joke."),
         QStringLiteral("From the gallery you can see the weather arrive like a train. It "
                        "took the island, then the skerries, then the car park with our "
                        "tent in it."),
         QStringLiteral("We were allowed to sleep on the ground floor. Every twelve "
                        "seconds the window remembered the sea.")},
        {QColor(0x1f, 0x2d, 0x4a),
         QColor(0x7d, 0x86, 0xa0),
         QColor(0xf3, 0xec, 0xd6),
         0.82,
         0.22,
         {{QColor(0x53, 0x60, 0x7c), 0.4, 0.05, 0.6}, {QColor(0x2a, 0x37, 0x48), 0.32, 0.09, 0.7}},
         QColor(0x22, 0x36, 0x4f),
         Motif::Lighthouse,
         9}};
}

JournalEntry lanterns() {
    return {QStringLiteral("A street that opens late"),
            QStringLiteral("Higashi-machi, Japan"),
            QStringLiteral("17 Nov"),
            QStringLiteral("Mild, 14°"),
            QStringLiteral("Two bowls of soba"),
            QStringLiteral("By day it is a row of closed shutters. At half past four, somebody "
                           "hangs out the first lantern."),
            {QStringLiteral("There are eleven seats in the whole street that is worth eating "
                            "in, and nine of them were taken by the same firemen’s choir. They "
                            "moved together to make room and sang us the menu."),
             QStringLiteral("The cook works on a surface no larger than this notebook. He folds, "
                            "cuts, lifts and rinses, and nothing is ever in the way of anything "
                            "else. I would like to pack a bag like that, once."),
             QStringLiteral("Walking back, the lanterns went out behind us, one after the "
                            "other, as if we were the ones doing it.")},
            {QColor(0x2b, 0x23, 0x46),
             QColor(0xc2, 0x6b, 0x62),
             QColor(0xff, 0xdc, 0xb0),
             0.62,
             0.4,
             {{QColor(0x6a, 0x3f, 0x5e), 0.46, 0.12, 0.35},
              {QColor(0x45, 0x2d, 0x50), 0.36, 0.08, 0.5},
              {QColor(0x2c, 0x20, 0x3c), 0.22, 0.05, 0.3}},
             QColor(),
             Motif::Lanterns,
             4}};
}

} // namespace

int JournalEntry::words() const {
    int count = int(lead.split(QLatin1Char(' ')).size());
    for (const QString &paragraph : paragraphs)
        count += int(paragraph.split(QLatin1Char(' ')).size());
    return count;
}

const QList<JournalEntry> &JournalEntry::all() {
    static const QList<JournalEntry> entries{harbour(), mountains(),  desert(),
                                             lake(),    lighthouse(), lanterns()};
    return entries;
}

} // namespace demo
