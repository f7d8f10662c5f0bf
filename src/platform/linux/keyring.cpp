#include "platform/linux/keyring.h"

#include <QPromise>

#include <qt6keychain/keychain.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString service = u"Quenoria"_s;

SecretAnswer::State state(const QKeychain::Job &job)
{
    switch (job.error()) {
    case QKeychain::NoError:
        return SecretAnswer::State::found;
    case QKeychain::EntryNotFound:
        return SecretAnswer::State::absent;
    default:
        return SecretAnswer::State::noKeyring;
    }
}

/// Starts the job, which deletes itself, and gives what is made of it once it has ended.
template <typename Answer, typename Job, typename Make>
QFuture<Answer> start(Job *job, const QString &name, Make make)
{
    auto promise = std::make_shared<QPromise<Answer>>();
    promise->start();
    job->setKey(name);
    job->setInsecureFallback(false);
    QObject::connect(job, &QKeychain::Job::finished, job, [promise, job, make] {
        promise->addResult(make(*job));
        promise->finish();
    });
    job->start();
    return promise->future();
}

} // namespace

QFuture<SecretAnswer> Keyring::read(const QString &name)
{
    return start<SecretAnswer>(new QKeychain::ReadPasswordJob(service), name,
                               [](const QKeychain::ReadPasswordJob &job) {
                                   return SecretAnswer{state(job), job.textData()};
                               });
}

QFuture<SecretAnswer::State> Keyring::keep(const QString &name, const QString &secret)
{
    auto *job = new QKeychain::WritePasswordJob(service);
    job->setTextData(secret);
    return start<SecretAnswer::State>(
        job, name, [](const QKeychain::WritePasswordJob &done) { return state(done); });
}

QFuture<SecretAnswer::State> Keyring::forget(const QString &name)
{
    return start<SecretAnswer::State>(new QKeychain::DeletePasswordJob(service), name,
                                      [](const QKeychain::DeletePasswordJob &done) {
                                          return done.error() == QKeychain::NoError
                                                     ? SecretAnswer::State::absent
                                                     : state(done);
                                      });
}

} // namespace quenoria
