// Loads the libraries of the application, and ends: the least that its start takes.

int main() {
    return 0;
}
