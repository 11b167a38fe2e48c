// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** The result of a blind test. Where rounding would make more than 100 of the two percentages, B gets what A leaves. */
struct VoteStatistics
{
    VoteStatistics (int total, int forA, int forB) noexcept : votes (total), votesForA (forA), votesForB (forB)
    {
        if (total <= 0)
            return;

        const auto percent = [total] (int part)
        { return static_cast<int> (static_cast<float> (part) / static_cast<float> (total) * 100.0f + 0.5f); };
        percentA = percent (forA);
        percentB = percent (forB);

        if (percentA + percentB > 100)
            percentB = 100 - percentA;
    }

    int votes, votesForA, votesForB;
    int percentA = 0, percentB = 0;
};
