#include "devkit/store/SampleAccount.h"

#include <string>

#include "devkit/base/Places.h"
#include "devkit/base/Token.h"
#include "devkit/store/Contacts.h"
#include "devkit/store/Sharing.h"

namespace devkit {
namespace {

/// How a name was entered: both ways of writing occur in one book, as they do in real ones.
enum class Written { FirstLast, LastFirst };
using enum Written;

enum class Belongs { Listed, Newcomer, Outside };
using enum Belongs;

struct Person {
  const char *address;
  const char *first;
  const char *last;
  Written written;
  Belongs belongs = Listed;
};

constexpr Person kHolder = {"jordan.avery@brisvale.example", "Jordan", "Avery", FirstLast};
constexpr Person kOwner = {"margaret.holloway@brisvale.example", "Margaret", "Holloway", LastFirst};

constexpr Person kPeople[] = {
    kOwner,
    {"thomas.whitfield@brisvale.example", "Thomas", "Whitfield", LastFirst},
    {"olivia.bennett@brisvale.example", "Olivia", "Bennett", FirstLast},
    {"james.okafor@brisvale.example", "James", "Okafor", LastFirst},
    {"priya.raman@brisvale.example", "Priya", "Raman", LastFirst},
    {"zoe.lindqvist@brisvale.example", "Zoë", "Lindqvist", FirstLast},
    {"bjoern.aasen@brisvale.example", "Bjørn", "Aasen", LastFirst},
    {"francois.lefevre@brisvale.example", "François", "Lefèvre", LastFirst},
    {"maria.gonzalez@brisvale.example", "María José", "González Ruiz", LastFirst},
    {"juergen.mueller@brisvale.example", "Jürgen", "Müller", LastFirst},
    {"sean.oneill@brisvale.example", "Seán", "O'Neill", FirstLast},
    {"anna-lena.vogt@brisvale.example", "Anna-Lena", "Vogt", LastFirst},
    {"pieter.vandermeer@brisvale.example", "Pieter", "van der Meer", LastFirst},
    {"agnieszka.wozniak@brisvale.example", "Agnieszka", "Woźniak", LastFirst},
    {"istvan.szabo@brisvale.example", "István", "Szabó", FirstLast},
    {"ondrej.dvorak@brisvale.example", "Ondřej", "Dvořák", LastFirst},
    {"ioana.popescu@brisvale.example", "Ioana", "Popescu", FirstLast},
    {"gudrun.jonsdottir@brisvale.example", "Guðrún", "Jónsdóttir", FirstLast},
    {"cemile.yildiz@brisvale.example", "Cemile", "Yıldız", LastFirst},
    {"joao.carvalho@brisvale.example", "João", "Carvalho", LastFirst},
    {"giulia.deangelis@brisvale.example", "Giulia", "De Angelis", LastFirst},
    {"kenji.tanaka@brisvale.example", "健司", "田中", FirstLast},
    {"yuki.sato@brisvale.example", "Yuki", "Satō", LastFirst},
    {"li.wei@brisvale.example", "伟", "李", LastFirst},
    {"wang.fang@brisvale.example", "Fang", "Wang", LastFirst},
    {"kim.minji@brisvale.example", "민지", "김", FirstLast},
    {"anastasia.volkova@brisvale.example", "Анастасия", "Волкова", LastFirst},
    {"dmytro.shevchenko@brisvale.example", "Дмитро", "Шевченко", FirstLast},
    {"eleni.papadopoulou@brisvale.example", "Ελένη", "Παπαδοπούλου", LastFirst},
    {"yusuf.haddad@brisvale.example", "يوسف", "حداد", FirstLast},
    {"noa.levi@brisvale.example", "נועה", "לוי", FirstLast},
    {"ananya.iyer@brisvale.example", "अनन्या", "अय्यर", LastFirst},
    {"somchai.wattana@brisvale.example", "สมชาย", "วัฒนา", FirstLast},
    {"nguyen.thi.hoa@brisvale.example", "Thị Hoa", "Nguyễn", LastFirst},
    {"oluwaseun.adeyemi@brisvale.example", "Oluwaseun", "Adeyemi", LastFirst},
    {"amara.nwosu@brisvale.example", "Amara", "Nwosu", FirstLast},
    {"thandiwe.dlamini@brisvale.example", "Thandiwe", "Dlamini", LastFirst},
    {"keoni.kahale@brisvale.example", "Keoni", "Kahale", FirstLast},
    {"aroha.ngata@brisvale.example", "Aroha", "Ngata", LastFirst},
    {"mateo.quispe@brisvale.example", "Mateo", "Quispe Mamani", LastFirst},
    {"camille.tremblay@brisvale.example", "Camille", "Tremblay", LastFirst},
    {"harold.finch@brisvale.example", "Harold", "Finch", LastFirst},
    {"beatrice.langley@brisvale.example", "Beatrice", "Langley", FirstLast},
    {"declan.murphy@brisvale.example", "Declan", "Murphy", LastFirst},
    {"rhiannon.pryce@brisvale.example", "Rhiannon", "Pryce", LastFirst},
    {"alasdair.macleod@brisvale.example", "Alasdair", "MacLeod", LastFirst},
    {"victoria.stone@brisvale.example", "Victoria", "Stone", FirstLast},
    {"victor.stone@brisvale.example", "Victor", "Stone", LastFirst},
    {"benjamin.carter@brisvale.example", "Benjamin", "Carter", LastFirst},
    {"charlotte.reyes@brisvale.example", "Charlotte", "Reyes", LastFirst},
    {"daniel.kowalski@brisvale.example", "Daniel", "Kowalski", FirstLast},
    {"esther.goldberg@brisvale.example", "Esther", "Goldberg", LastFirst},
    {"frederik.norgaard@brisvale.example", "Frederik", "Nørgaard", LastFirst},
    {"grace.hopkins@brisvale.example", "Grace", "Hopkins", FirstLast},
    {"hannah.de.vries@brisvale.example", "Hannah", "de Vries", LastFirst},
    {"reception@brisvale.example", "Reception", "", FirstLast},
    {"it-support@brisvale.example", "IT Support", "", FirstLast},
    {"nadia.rahman@brisvale.example", "Nadia", "Rahman", LastFirst, Newcomer},
    {"lucas.moreau@brisvale.example", "Lucas", "Moreau", FirstLast, Newcomer},
    {"robin.ellis@lakeside-print.example", "Robin", "Ellis", FirstLast, Outside},
    {"contact@harbourlegal.example", "Harbour Legal", "", FirstLast, Outside},
};

Contact contactFor(const Person &person) {
  return {.email = person.address,
          .firstName = person.first,
          .lastName = person.last,
          .lastFirst = person.written == LastFirst,
          .employee = person.belongs != Outside,
          .listed = person.belongs == Listed};
}

Access accessFor(const Person &person, Rights rights, bool owner = false) {
  return {.email = person.address,
          .firstName = person.first,
          .lastName = person.last,
          .rights = rights,
          .owner = owner};
}

std::string addFolder(Database &database, const char *path) {
  auto id = unguessableToken();
  database.prepare("INSERT INTO items (path, id, folder) VALUES (?, ?, 1)")
      .bytes(path)
      .text(id)
      .run();
  return id;
}

constexpr Rights kReadOnly = {.download = true};
constexpr Rights kReadWrite = {.download = true, .upload = true, .remove = true};

}  // namespace

void addSampleAccount(Database &database) {
  database.prepare("INSERT INTO account (email, first, last, company) VALUES (?, ?, ?, ?)")
      .text(kHolder.address)
      .text(kHolder.first)
      .text(kHolder.last)
      .text("Brisvale Example Ltd")
      .run();

  Contacts contacts(database);
  for (const auto &person : kPeople) contacts.add(contactFor(person));

  addFolder(database, kHomeFolderName);
  Sharing sharing(database);
  const auto shared = addFolder(database, kSampleSharedFolder);
  sharing.grant(shared, accessFor(kHolder, kReadWrite, true));
  sharing.grant(shared, accessFor(kPeople[1], kReadWrite));
  sharing.grant(shared, accessFor(kPeople[5], kReadOnly));
  sharing.grant(shared, accessFor(kPeople[21], kReadOnly));
  sharing.grant(shared, {.type = "group",
                         .email = "aurora-steering@brisvale.example",
                         .firstName = "Aurora Steering Group",
                         .rights = kReadOnly});

  const auto foreign = addFolder(database, kSampleForeignFolder);
  sharing.grant(foreign, accessFor(kOwner, kReadWrite, true));
  sharing.grant(foreign, accessFor(kHolder, kReadOnly));
}

}  // namespace devkit
