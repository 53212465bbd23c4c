// Placeholder replaced by the commands of bok.
