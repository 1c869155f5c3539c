# pack.pl TEXT-FILE OUTPUT: the Palm database as a general library of Palm databases writes it. That library puts
# two NUL bytes between the record list and the first record, so each offset is greater by two.
use strict;
use warnings;
use Palm::PDB;
use Palm::Raw;

my $date = 0xBBF81E02 - 2082844800;    # the library counts from 1970
my $pdb  = Palm::Raw->new;
$pdb->{name}       = "Celestrix Satellite";
$pdb->{attributes} = { Backup => 1, Bundle => 1 };
$pdb->{version}    = 3;
$pdb->{$_} = $date for qw(ctime mtime baktime);
$pdb->{$_} = 0 for qw(modnum uniqueIDseed);
$pdb->{type}    = "pl12";
$pdb->{creator} = "RZQ4";
$pdb->{"2NULs"} = "\0\0";

open my $text, "<:raw", $ARGV[0] or die "$ARGV[0]: $!";
my @lines;
while (my $line = <$text>) {
    chomp $line;
    push @lines, pack("a71", $line) if $line =~ /\S/ && length $line <= 71;
}
while (@lines >= 3) {
    push @{ $pdb->{records} }, { data => join("", splice(@lines, 0, 3)), id => 0, category => 0, attributes => {} };
}
$pdb->Write($ARGV[1]) or die "$ARGV[1]: $!";
