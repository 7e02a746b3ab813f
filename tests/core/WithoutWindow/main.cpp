// Every object of the core is in this program, and nothing else but Qt Core: that it links shows that the core knows no
// window.
int main()
{
    return 0;
}
