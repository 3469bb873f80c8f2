#pragma once

#include <private/qdrawhelper_p.h>

namespace txqt
{

/// Spans of pixels on their way to one of Qt's blending functions, gathered as Qt's rasteriser gathers them: a span
/// joins only the one before it, and a full batch goes out when the next span does not. Gradients and textures are
/// computed anew from where a span or a batch begins, so this shows in pixels.
class SpanBatch
{
public:
    SpanBatch(ProcessSpans blend, QSpanData* data) : blend(blend), data(data) {}
    SpanBatch(const SpanBatch&) = delete;
    SpanBatch& operator=(const SpanBatch&) = delete;

    void Add(int x, int y, int length, int coverage)
    {
        if (count > 0)
        {
            QSpan& last = spans[count - 1];
            if (last.y == y && last.x + last.len == x && last.coverage == coverage)
            {
                last.len = static_cast<unsigned short>(last.len + length);
                return;
            }
            if (count == kMost)
                Flush();
        }
        QSpan& span = spans[count++];
        span.x = static_cast<short>(x);
        span.len = static_cast<unsigned short>(length);
        span.y = static_cast<short>(y);
        span.coverage = static_cast<unsigned char>(coverage);
    }

    void Flush()
    {
        if (count > 0)
            blend(count, spans, data);
        count = 0;
    }

private:
    static constexpr int kMost = 256;

    ProcessSpans blend;
    QSpanData* data;
    int count = 0;
    QSpan spans[kMost];
};

} // namespace txqt
