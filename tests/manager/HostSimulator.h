// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

/** Host time: each sample of material has its moment, which never comes again, not in the next lap of a loop either. */
using Moment = std::int64_t;

/** A stretch of material on which the transport behaves in one way. */
struct Step
{
    enum Transport
    {
        moves,           // positions go on with the material
        stands,          // they stand while the material moves, and the host says that it plays,
        standsMutely,    // or says so to the listener only,
        standsUnheard,   // or to the sender only
        stopped,         // the material moves all the same
        absent           // the host knows no positions
    };

    enum Missing
    {
        nobody,
        sender,
        listener
    };   // whom the host does not call
    enum Act
    {
        nothing,
        cut,
        link,
        leave,
        replace,
        reload
    };   // at the beginning: of the link, the sender, the session

    Transport transport = moves;
    std::int64_t from = 0;   // position
    int samples = 0;
    Missing missing = nobody;
    Act act = nothing;
    int lap = 0;   // samples of a loop
    double speed = 1;
    int lead = 0;   // samples that the sender's track is ahead by, on top of the host's
};

using Story = std::vector<Step>;

/** How a host calls a sender and a listener. All in samples; a length of 0 draws each one anew, from 1 to 4096. */
struct Host
{
    enum Order
    {
        senderFirst,
        listenerFirst,
        drawn,
        mixed
    };   // in each cycle; mixed goes from block to block

    int cycle = 1024, senderBlock = 1024, listenerBlock = 1024;
    Order order = senderFirst;
    int lowestLead = 0, highestLead = 0;   // that the sender's track is rendered ahead by, drawn anew now and then
    bool jumpsInside = false;              // blocks go on over a jump, labelled as they began
    bool jitters = false;                  // positions may be one off, always the same way for the same moment
    bool flushes = false;                  // at a seek, what was rendered ahead is thrown away

    static int longest (int length) { return length > 0 ? length : 4096; }
    int longestBlock() const { return std::max (longest (senderBlock), longest (listenerBlock)); }
    int longestBlocks() const { return longest (senderBlock) + longest (listenerBlock); }

    /** @returns how much the distance between the two wanders. */
    int width() const { return highestLead - lowestLead + longest (cycle) * (order == mixed ? 2 : 1); }

    /** No distance looks like an absence. */
    bool isSteady() const { return senderBlock > 0 && listenerBlock > 0 && width() <= longestBlocks(); }

    /** The blocks of both begin together. */
    bool isAligned() const { return senderBlock == listenerBlock && senderBlock > 0; }

    /** All cycles are the same. */
    bool isRegular() const { return isAligned() && cycle == senderBlock && order <= listenerFirst && width() == cycle; }
};

/** What became of the samples that a listener read; the last two are faults. */
struct Verdict
{
    std::int64_t exact = 0, rightlySilent = 0, excused = 0, silent = 0, wrong = 0;
    std::string firstFault {};

    bool holds() const { return silent + wrong == 0; }
};

constexpr Moment kSilence = -1;

/** Plays a story on a host and judges each sample of B, knowing which moment it is.

    The listener's own signal leaves 4096 samples late, and B belongs to it: of the same moment, it is *exact*. It is
    *rightly silent* where the sender never got that moment, or not yet, or the ring has let it go; and within 8192 samples of
    an event, which is a link, or a place in the material where one side missed something. A track that is rendered ahead
    looks away for as many samples more, until it is rendered on. All else is *silent* or *wrong*.

    Nothing is wrong while positions move. Where they stand or are missing, wrong is *excused* as long as nobody can know
    better, until positions moved on both sides with nothing missed since:
    - After a link, B may be off, by no more than the distance wanders, and always by the same. It is exact if the pod was
      empty, both began in the same cycle and the sender has one block in it.
    - An absence of one side is noticed if it is longer than two of the longest blocks of both and all cycles are the same; so
      is an excursion of the distance. Within 8192 samples B is then what it was before.
    - Other absences, a distance that wanders further than both blocks together, and blocks drawn anew leave B anywhere.

    @param reader gives, for each expected moment, the one that is heard in place of what the manager reads */
Verdict simulate (const Host&, const Story&, unsigned seed = 1, const std::function<Moment (Moment)>& reader = {});

std::ostream& operator<< (std::ostream&, const Host&);
std::ostream& operator<< (std::ostream&, const Step&);
std::ostream& operator<< (std::ostream&, const Verdict&);
