#include "ValueCheckerThread.h"

#include <chrono>

namespace
{
constexpr int DefaultDelay = 1000; // ms
}

ValueCheckerThread::ValueCheckerThread() : ValueCheckerThread(DefaultDelay) {}

ValueCheckerThread::ValueCheckerThread(int delay) : m_delay(delay) {}

ValueCheckerThread::~ValueCheckerThread()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex); // never between its test and its wait
        m_destroyed = true;
    }
    m_wake.notify_all();
    wait();
}

void ValueCheckerThread::setDelay(int delay) { m_delay = delay; }

void ValueCheckerThread::changeDelay(int delay) { setDelay(delay); }

void ValueCheckerThread::stop() { m_stopped = true; }

void ValueCheckerThread::run()
{
    m_stopped = false;
    while (!m_stopped && !m_destroyed) {
        emit checkRequested();
        pause();
    }
}

void ValueCheckerThread::pause()
{
    const std::chrono::milliseconds delay(m_delay);
    if (delay.count() <= 0) {
        yieldCurrentThread();
        return;
    }
    std::unique_lock<std::mutex> lock(m_mutex);
    m_wake.wait_for(lock, delay, [this] { return m_destroyed.load(); });
}
