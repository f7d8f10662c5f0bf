#pragma once

class QWidget;

namespace quenoria {

class BatchQueue;
enum class RunQuestion;

/// Asks over the sheet; the queue goes on when the user insists. Gives the question, which deletes
/// itself once it is answered.
QWidget *askBeforeRun(RunQuestion question, BatchQueue &queue, QWidget *sheet);

} // namespace quenoria
