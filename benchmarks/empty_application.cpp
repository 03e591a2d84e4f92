/// The least that any program with windows costs at its start, for bench_start.py.
#include <QApplication>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    return 0;
}
