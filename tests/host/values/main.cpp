#include <gtest/gtest.h>

#ifdef __SANITIZE_ADDRESS__
/// Sizes that no system can give are asked for on purpose: the allocator then answers instead of ending the program.
extern "C" const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}
#endif

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
